// simdjson's On-Demand interface, walked completely. On its own it checks only the values that are read; here every
// value is either read, or skipped with the same checks.
#include "platform/foundation/json_reader.h"

#include <simdjson.h>

#include <new>
#include <utility>

#include "platform/foundation/json_fault.h"
#include "platform/language/sentence.h"

namespace orvel::json {

namespace ondemand = simdjson::ondemand;
using simdjson::error_code;
using simdjson::SUCCESS;

namespace {

// RFC 8259, section 6, with the white space that may follow.
bool isNumber(std::string_view text) {
    const auto take = [&](std::string_view characters) {
        const bool isThere = !text.empty() && characters.find(text.front()) != std::string_view::npos;
        if (isThere) text.remove_prefix(1);
        return isThere;
    };
    constexpr std::string_view digits = "0123456789";
    const auto takeDigits = [&] {
        const std::size_t before = text.size();
        while (take(digits)) {
        }
        return text.size() < before;
    };
    take("-");
    if (!take("0") && !takeDigits()) return false;
    if (take(".") && !takeDigits()) return false;
    if (take("eE")) {
        take("+-");
        if (!takeDigits()) return false;
    }
    while (take(" \t\n\r")) {
    }
    return text.empty();
}

}  // namespace

struct Pass {
    static constexpr int deepest = 512;

    ondemand::document document;
    const char* begin = nullptr;
    std::size_t size = 0;
    std::size_t skipped = 0;  // a byte-order mark before `begin`
    error_code error = SUCCESS;
    std::size_t errorOffset = 0;
    std::size_t reached = 0;  // the last value that was met
    int depth = 0;

    bool fail(error_code code) {
        if (error == SUCCESS) {
            error = code;
            const char* at = nullptr;
            errorOffset = document.current_location().get(at) == SUCCESS ? offset(at) : reached;
        }
        return false;
    }
    std::size_t offset(const char* at) const { return static_cast<std::size_t>(at - begin) + skipped; }
    TextPosition position(std::size_t at) const {
        TextPosition position = textPosition({begin, size}, at > skipped ? at - skipped : 0);
        position.offset = at;
        return position;
    }

    // A document that is a scalar offers the same operations as a value, under another type.
    template <class Operation>
    auto withSource(Value& value, Operation operation) {
        if (value.source_ == &document) return operation(document);
        return operation(*static_cast<ondemand::value*>(value.source_));
    }

    template <class Source>
    bool visit(Source& source, FunctionRef<bool(Value&)> visitor) {
        ondemand::json_type type;
        if (const auto code = source.type().get(type)) return fail(code);
        const char* at = nullptr;
        if (source.current_location().get(at) == SUCCESS) reached = offset(at);

        const auto kind = kindOf(type);
        if (!kind) return fail(simdjson::TAPE_ERROR);
        Value value(&source, *this, *kind, reached);
        if (!visitor(value)) return false;
        return error == SUCCESS && (value.taken_ || skip(value));
    }

    bool skip(Value& value) {
        switch (value.kind()) {
            case Kind::number: return number(value);
            case Kind::boolean: return value.boolean().has_value();
            case Kind::string: return value.string().has_value();
            case Kind::null: return null(value);
            case Kind::array: return value.elements([](Value&) { return true; });
            case Kind::object: return value.members([](std::string_view, Value&) { return true; });
        }
        return false;
    }

    // A number that the caller doesn't read may lie beyond the range of a double.
    bool number(Value& value) {
        double number = 0;
        value.taken_ = true;
        const auto code = withSource(value, [](auto& s) { return s.get_double(); }).get(number);
        if (code == SUCCESS) return true;
        using Token = simdjson::simdjson_result<std::string_view>;
        std::string_view token;
        if (withSource(value, [](auto& s) -> Token { return s.raw_json_token(); }).get(token) == SUCCESS &&
            isNumber(token))
            return true;
        return fail(code);
    }

    bool null(Value& value) {
        bool isNull = false;
        value.taken_ = true;
        if (const auto code = withSource(value, [](auto& s) { return s.is_null(); }).get(isNull)) return fail(code);
        return isNull || fail(simdjson::N_ATOM_ERROR);
    }

    // Newer versions of simdjson have a further type for text that begins no value; older ones return an error.
    static std::optional<Kind> kindOf(ondemand::json_type type) {
        switch (type) {
            case ondemand::json_type::array: return Kind::array;
            case ondemand::json_type::object: return Kind::object;
            case ondemand::json_type::number: return Kind::number;
            case ondemand::json_type::string: return Kind::string;
            case ondemand::json_type::boolean: return Kind::boolean;
            case ondemand::json_type::null: return Kind::null;
            default: return std::nullopt;
        }
    }
};

std::string_view name(Kind kind) {
    switch (kind) {
        case Kind::null: return toTranslate("null");
        case Kind::boolean: return toTranslate("a boolean");
        case Kind::number: return toTranslate("a number");
        case Kind::string: return toTranslate("a string");
        case Kind::array: return toTranslate("an array");
        case Kind::object: return toTranslate("an object");
    }
    return {};
}

TextPosition Value::position() const {
    return pass_->position(offset_);
}

std::optional<double> Value::number() {
    if (kind_ != Kind::number) return std::nullopt;
    double number = 0;
    taken_ = true;
    if (const auto code = pass_->withSource(*this, [](auto& s) { return s.get_double(); }).get(number)) {
        pass_->fail(code);
        return std::nullopt;
    }
    return number;
}

std::optional<bool> Value::boolean() {
    if (kind_ != Kind::boolean) return std::nullopt;
    bool boolean = false;
    taken_ = true;
    if (const auto code = pass_->withSource(*this, [](auto& s) { return s.get_bool(); }).get(boolean)) {
        pass_->fail(code);
        return std::nullopt;
    }
    return boolean;
}

std::optional<std::string_view> Value::string() {
    if (kind_ != Kind::string) return std::nullopt;
    std::string_view string;
    taken_ = true;
    if (const auto code = pass_->withSource(*this, [](auto& s) { return s.get_string(); }).get(string)) {
        pass_->fail(code);
        return std::nullopt;
    }
    return string;
}

bool Value::elements(FunctionRef<bool(Value&)> visit) {
    if (kind_ != Kind::array) return false;
    taken_ = true;
    if (++pass_->depth > Pass::deepest) return pass_->fail(simdjson::DEPTH_ERROR);
    ondemand::array array;
    if (const auto code = pass_->withSource(*this, [](auto& s) { return s.get_array(); }).get(array))
        return pass_->fail(code);
    for (auto element : array) {
        ondemand::value source;
        if (const auto code = element.get(source)) return pass_->fail(code);
        if (!pass_->visit(source, visit)) return false;
    }
    --pass_->depth;
    return true;
}

bool Value::members(FunctionRef<bool(std::string_view, Value&)> visit) {
    if (kind_ != Kind::object) return false;
    taken_ = true;
    if (++pass_->depth > Pass::deepest) return pass_->fail(simdjson::DEPTH_ERROR);
    ondemand::object object;
    if (const auto code = pass_->withSource(*this, [](auto& s) { return s.get_object(); }).get(object))
        return pass_->fail(code);
    for (auto field : object) {
        std::string_view name;
        if (const auto code = field.unescaped_key().get(name)) return pass_->fail(code);
        ondemand::value source;
        if (const auto code = field.value().get(source)) return pass_->fail(code);
        if (!pass_->visit(source, [&](Value& value) { return visit(name, value); })) return false;
    }
    --pass_->depth;
    return true;
}

std::optional<SyntaxFailure> read(std::string text, FunctionRef<bool(Value&)> visit) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    const std::size_t size = text.size();
    text.reserve(size + simdjson::SIMDJSON_PADDING);

    Pass pass;
    pass.skipped = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    pass.begin = text.data() + pass.skipped;
    pass.size = size - pass.skipped;
    const simdjson::padded_string_view padded(pass.begin, pass.size, text.capacity() - pass.skipped);

    ondemand::parser parser;
    const auto finish = [&]() -> std::optional<SyntaxFailure> {
        if (pass.error == SUCCESS) return std::nullopt;
        if (pass.error == simdjson::MEMALLOC) throw std::bad_alloc();  // says nothing of the text
        const auto located = locatedFault({pass.begin, pass.size}, pass.error);
        if (located) return SyntaxFailure{located->reason, pass.position(located->offset + pass.skipped)};
        return SyntaxFailure{faultInWords(pass.error), pass.position(pass.errorOffset)};
    };
    // Newer versions of simdjson pass over a mark, which would then be a second one.
    if (std::string_view(pass.begin, pass.size).starts_with(byteOrderMark)) {
        pass.error = simdjson::INCORRECT_TYPE;
        return finish();
    }
    if (const auto code = parser.iterate(padded).get(pass.document)) {
        pass.error = code;
        return finish();
    }
    if (!pass.visit(pass.document, visit)) return finish();
    if (pass.document.current_location().error() != simdjson::OUT_OF_BOUNDS) pass.fail(simdjson::TRAILING_CONTENT);
    return finish();
}

}  // namespace orvel::json
