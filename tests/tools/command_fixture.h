// The orvel command on a machine in memory: arguments and standard input in, exit code and output out.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/fakes.h"
#include "tools/command_line.h"

namespace orvel::tools {

struct Answer {
    int code;
    std::string out;
    std::string err;
};

class Command : public testing::Test {
protected:
    Answer run(std::vector<const char*> arguments, const std::string& input = {}) {
        arguments.insert(arguments.begin(), "orvel");
        std::istringstream in(input);
        std::ostringstream out;
        std::ostringstream err;
        const int code = tools::run(static_cast<int>(arguments.size()), arguments.data(), machine.platform,
                                    {in, out, err, columns, isInteractive});
        return {code, out.str(), err.str()};
    }
    test::FakeMachine machine;
    std::optional<std::size_t> columns = {};  ///< of the terminal that the command prints on
    bool isInteractive = false;
};

}  // namespace orvel::tools
