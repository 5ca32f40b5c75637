// oxtool: the command-line tool of OxClassLib.
#include <cstdio>
#include <cstring>

#include "OxClassLib.h"
#include "oxtool_demos.h"

namespace {

const char kUsage[] =
    "usage: oxtool COMMAND [ARGS]\n"
    "\n"
    "commands:\n"
    "  demo        show the library at work, area by area\n"
    "  help        print this text (also -h, --help)\n"
    "  version     print the version (also --version)\n"
    "\n"
    "exit status: 0 success, 1 failure, 2 bad usage\n";

int RunDemo() {
  int failures = 0;
  failures += DemoBase(stdout);
  if (failures) std::fprintf(stderr, "oxtool: demo: %d part(s) failed\n", failures);
  return failures ? 1 : 0;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc < 2) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  const char *command = argv[1];
  if (!std::strcmp(command, "help") || !std::strcmp(command, "-h") ||
      !std::strcmp(command, "--help")) {
    std::fputs(kUsage, stdout);
    return 0;
  }
  if (!std::strcmp(command, "version") || !std::strcmp(command, "--version")) {
    std::printf("oxtool %s\n", OXCLASSLIB_VERSION_TEXT);
    return 0;
  }
  if (!std::strcmp(command, "demo")) return RunDemo();
  std::fprintf(stderr, "oxtool: unknown command '%s'\n%s", command, kUsage);
  return 2;
}
