#include "tools/common/command_line.h"

#include <cstdio>
#include <exception>

namespace tools {

int runTool(CLI::App& app, int argc, const char* const* argv, const std::function<void()>& work)
{
    try {
        app.parse(argc, argv);
        work();
        return 0;
    } catch (const CLI::Success& success) { // --help
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "%s: %s; see %s --help\n", app.get_name().c_str(), error.what(),
                     app.get_name().c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}

} // namespace tools
