#include "designer/http/request.h"

#include <algorithm>
#include <charconv>

namespace orvel::designer {
namespace {

constexpr std::string_view lineEnd = "\r\n";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string inSmallLetters(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return result;
}

// RFC 9110's token.
bool isToken(std::string_view text) {
    constexpr std::string_view marks = "!#$%&'*+-.^_`|~";
    return !text.empty() && std::ranges::all_of(text, [&](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               marks.find(c) != marks.npos;
    });
}

bool hasControlCharacter(std::string_view text) {
    return std::ranges::any_of(text,
                               [](char c) { return (static_cast<unsigned char>(c) < 32 && c != '\t') || c == 127; });
}

std::string_view takeUntil(std::string_view& text, std::string_view end) {
    const auto found = text.find(end);
    const auto taken = text.substr(0, found);
    text.remove_prefix(found == text.npos ? text.size() : found + end.size());
    return taken;
}

const std::string* find(const std::map<std::string, std::string>& table, const std::string& name) {
    const auto found = table.find(name);
    return found == table.end() ? nullptr : &found->second;
}

bool readTarget(std::string_view target, HttpRequest& request) {
    const auto path = percentDecoded(takeUntil(target, "?"));
    if (!path || !path->starts_with('/') || hasControlCharacter(*path)) return false;
    request.path = *path;
    while (!target.empty()) {
        std::string_view value = takeUntil(target, "&");
        const auto name = percentDecoded(takeUntil(value, "="));
        std::string spaced(value);
        std::ranges::replace(spaced, '+', ' ');
        auto decoded = percentDecoded(spaced);
        if (!name || !decoded) return false;
        request.query.emplace(*name, *std::move(decoded));
    }
    return true;
}

std::optional<BadRequest> readLength(HttpRequest& request) {
    if (request.headers.contains("transfer-encoding")) return BadRequest{501, "a body needs a Content-Length"};
    const std::string* const length = find(request.headers, "content-length");
    if (!length) return std::nullopt;
    const auto [end, error] = std::from_chars(length->data(), length->data() + length->size(), request.bodyLength);
    if (error == std::errc{} && end == length->data() + length->size()) return std::nullopt;
    return BadRequest{400, "Content-Length is no number"};
}

}  // namespace

std::string_view HttpRequest::header(const std::string& name) const {
    const std::string* const found = find(headers, name);
    return found ? *found : std::string_view();
}

std::string_view HttpRequest::parameter(const std::string& name) const {
    const std::string* const found = find(query, name);
    return found ? *found : std::string_view();
}

std::string_view HttpRequest::cookie(std::string_view name) const {
    std::string_view rest = header("cookie");
    while (!rest.empty()) {
        std::string_view value = trimmed(takeUntil(rest, ";"));
        if (takeUntil(value, "=") == name) return value;
    }
    return {};
}

Result<HttpRequest, BadRequest> parseHead(std::string_view head) {
    std::string_view line = takeUntil(head, lineEnd);
    HttpRequest request{std::string(takeUntil(line, " ")), {}};
    const std::string_view target = takeUntil(line, " ");
    if (!isToken(request.method) || (line != "HTTP/1.1" && line != "HTTP/1.0") || !readTarget(target, request))
        return BadRequest{400, "this is no request of HTTP/1.1"};

    while (!head.empty()) {
        std::string_view value = takeUntil(head, lineEnd);
        const std::string_view name = takeUntil(value, ":");
        if (!isToken(name) || hasControlCharacter(value)) return BadRequest{400, "a header isn't understood"};
        const bool isFirst = request.headers.emplace(inSmallLetters(name), trimmed(value)).second;
        if (!isFirst) return BadRequest{400, "a header occurs twice"};
    }
    if (auto bad = readLength(request)) return *std::move(bad);
    request.keepsConnection = line == "HTTP/1.1" && inSmallLetters(request.header("connection")) != "close";
    return request;
}

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (hasControlCharacter(text.substr(i, 1))) return std::nullopt;
        if (text[i] != '%') {
            result += text[i];
            continue;
        }
        unsigned char byte = 0;
        const char* const digits = text.data() + i + 1;
        if (text.size() - i < 3) return std::nullopt;
        const auto [end, error] = std::from_chars(digits, digits + 2, byte, 16);
        if (error != std::errc{} || end != digits + 2 || byte == 0) return std::nullopt;
        result += static_cast<char>(byte);
        i += 2;
    }
    return result;
}

std::string percentEncoded(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
        if (isPlain) {
            result += c;
        } else {
            result += '%';
            result += "0123456789ABCDEF"[byte >> 4];
            result += "0123456789ABCDEF"[byte & 15];
        }
    }
    return result;
}

}  // namespace orvel::designer
