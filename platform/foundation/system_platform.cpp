// The interfaces to the machine, implemented with POSIX and the C library.
#include <pwd.h>
#include <sys/random.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <random>
#include <vector>

#include "platform/foundation/platform.h"
#include "platform/foundation/posix_files.h"

namespace orvel {
namespace {

class SystemClock final : public Clock {
public:
    Date now() const override {
        using namespace std::chrono;
        // Counted from the reference date before it becomes a double, for the finest fraction.
        constexpr seconds reference{static_cast<long long>(Date::referenceUnixTime)};
        return {duration<double>(system_clock::now().time_since_epoch() - reference).count()};
    }
};

class SystemAccounts final : public Accounts {
public:
    std::optional<Account> current() const override {
        std::vector<char> buffer(1024);
        for (;;) {
            passwd record;
            passwd* found = nullptr;
            const int code = ::getpwuid_r(::getuid(), &record, buffer.data(), buffer.size(), &found);
            if (code == ERANGE) {
                buffer.resize(buffer.size() * 2);
                continue;
            }
            if (code == EINTR) continue;
            if (!found) return std::nullopt;
            Account account;
            if (found->pw_dir) account.homeDirectory = found->pw_dir;
            return account;
        }
    }

    std::string processHomeDirectory() const override {
        const char* const home = std::getenv("HOME");
        return home && *home ? home : "/";
    }

    // XDG Base Directory: a path that isn't absolute counts as none.
    std::optional<std::string> configurationDirectory() const override { return absolutePath("XDG_CONFIG_HOME"); }
    std::optional<std::string> stateDirectory() const override { return absolutePath("XDG_STATE_HOME"); }

private:
    static std::optional<std::string> absolutePath(const char* variable) {
        const char* const directory = std::getenv(variable);
        if (!directory || *directory != '/') return std::nullopt;
        return directory;
    }
};

class SystemTimeZone final : public TimeZone {
public:
    std::optional<std::chrono::seconds> utcOffset(std::chrono::sys_seconds instant) const override {
        ::tzset();  // localtime_r alone may not notice that the zone has changed
        const time_t seconds = instant.time_since_epoch().count();
        tm local;
        if (!::localtime_r(&seconds, &local)) return std::nullopt;
        return std::chrono::seconds(local.tm_gmtoff);
    }
};

class SystemIdentities final : public IdentitySource {
public:
    std::string uuid() const override {
        std::array<unsigned char, 16> bytes;
        if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
            std::random_device random;  // a kernel without getrandom
            for (auto& byte : bytes) byte = static_cast<unsigned char>(random());
        }
        bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40);  // version 4
        bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80);  // the variant of RFC 9562

        std::string text;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
            text += "0123456789ABCDEF"[bytes[i] >> 4];
            text += "0123456789ABCDEF"[bytes[i] & 0x0F];
        }
        return text;
    }
};

}  // namespace

const Platform& Platform::system() {
    static const SystemClock clock;
    static PosixFiles files;
    static const SystemAccounts accounts;
    static const SystemTimeZone timeZone;
    static const SystemIdentities identities;
    static const Platform platform{clock, files, accounts, timeZone, identities};
    return platform;
}

}  // namespace orvel
