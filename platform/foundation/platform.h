// The interfaces to the machine in one bundle: clock, files, accounts, time zone and random identities. Operations take
// it as their last argument, so that tests and fixed clocks can replace it; the functions that programs call have the
// system as the default. Nothing here is mutable, and any thread may use it.
#pragma once

#include "platform/foundation/accounts.h"
#include "platform/foundation/clock.h"
#include "platform/foundation/files.h"
#include "platform/foundation/identity.h"
#include "platform/foundation/time_zone.h"

namespace orvel {

struct Platform {
    const Clock& clock;
    Files& files;
    const Accounts& accounts;
    const TimeZone& timeZone;
    const IdentitySource& identities;

    /// The same machine with another clock, which must outlive the copy.
    Platform with(const Clock& other) const { return {other, files, accounts, timeZone, identities}; }

    /// The machine this process runs on. The local time zone is read again at each use.
    static const Platform& system();
};

}  // namespace orvel
