#include "designer/http/response.h"

#include "platform/foundation/json_writer.h"

namespace orvel::designer {
namespace {

const char* phrase(int status) {
    switch (status) {
        case 200: return "OK";
        case 400: return "Bad Request";
        case 403: return "Forbidden";
        case 404: return "Not Found";
        case 405: return "Method Not Allowed";
        case 409: return "Conflict";
        case 413: return "Content Too Large";
        case 415: return "Unsupported Media Type";
        case 421: return "Misdirected Request";
        case 422: return "Unprocessable Content";
        case 431: return "Request Header Fields Too Large";
        case 501: return "Not Implemented";
        default: return "Internal Server Error";
    }
}

constexpr const char* everyAnswersHeaders =
    "Cache-Control: no-store\r\n"
    "Content-Security-Policy: default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; "
    "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'\r\n"
    "Cross-Origin-Opener-Policy: same-origin\r\n"
    "Cross-Origin-Resource-Policy: same-origin\r\n"
    "Referrer-Policy: no-referrer\r\n"
    "X-Content-Type-Options: nosniff\r\n";

}  // namespace

HttpResponse refusal(int status, std::string_view reason, std::string_view field) {
    json::Writer writer;
    writer.beginObject().key("reason").string(reason);
    if (!field.empty()) writer.key("field").string(field);
    return {status, "application/json", writer.endObject().finish().value_or("{}")};
}

std::string serialized(const HttpResponse& response, Connection connection) {
    std::string text = "HTTP/1.1 " + std::to_string(response.status) + ' ' + phrase(response.status) + "\r\n";
    text += everyAnswersHeaders;
    text += "Content-Type: " + response.type + "\r\n";
    for (const auto& [name, value] : response.headers) text += name + ": " + value + "\r\n";
    if (!response.isEventStream) text += "Content-Length: " + std::to_string(response.body.size()) + "\r\n";
    if (connection == Connection::close) text += "Connection: close\r\n";
    return text + "\r\n" + response.body;
}

}  // namespace orvel::designer
