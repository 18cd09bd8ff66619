// Texts that are looked up before they are shown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

/// A key of the string table, with the integers to insert into it. In a key with integers, each of them is written
/// "%lld", and a percent sign "%%"; a key that is a single literal is taken as it is.
struct LocalizedStringKey {
    std::string key;
    std::vector<std::int64_t> arguments;

    explicit LocalizedStringKey(std::string_view literal) : key(literal) {}

    /// For interpolation: LocalizedStringKey::interpolation().integer(38).literal("%") has the key "%lld%%".
    static LocalizedStringKey interpolation() { return LocalizedStringKey(""); }
    LocalizedStringKey& literal(std::string_view text);
    LocalizedStringKey& integer(std::int64_t number);

    friend bool operator==(const LocalizedStringKey&, const LocalizedStringKey&) = default;
};

/// A string table.
class Localizer {
public:
    virtual ~Localizer() = default;
    /// The key's translation, or the key itself.
    virtual std::string lookUp(std::string_view key) const = 0;
};

/// A table without translations.
class KeysThemselves final : public Localizer {
public:
    std::string lookUp(std::string_view key) const override { return std::string(key); }
};

/// The text to show: the key's translation with its integers in plain decimal digits. A translation may change their
/// order ("%2$lld"); any other directive in it stays as it is.
std::string localized(const LocalizedStringKey& key, const Localizer& localizer);

}  // namespace orvel
