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
    "  demo                   show the library at work, area by area, ending\n"
    "                         with one exchange through the binary stream\n"
    "  dump FILE              print the variables and datasets of a binary\n"
    "                         stream file as tables (row types, original\n"
    "                         values, deleted rows)\n"
    "  sample FILE [TYPE]     write the demo's exchange to FILE as a binary\n"
    "                         stream, with save type TYPE (0, 1 or 2; 1 if\n"
    "                         not given)\n"
    "  help                   print this text (also -h, --help)\n"
    "  version                print the version (also --version)\n"
    "\n"
    "exit status: 0 success, 1 failure, 2 bad usage\n";

int RunDemo() {
  int failures = 0;
  failures += DemoBase(stdout);
  failures += DemoValues(stdout);
  failures += DemoDataset(stdout);
  failures += DemoExchange(stdout);
  if (failures)
    std::fprintf(stderr, "oxtool: demo: %d check(s) failed\n", failures);
  return failures ? 1 : 0;
}

int BadUsage(const char *message) {
  std::fprintf(stderr, "oxtool: %s\n%s", message, kUsage);
  return 2;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc < 2) return BadUsage("a command is needed");
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
  if (!std::strcmp(command, "demo")) {
    if (argc != 2) return BadUsage("demo takes no arguments");
    return RunDemo();
  }
  if (!std::strcmp(command, "dump")) {
    if (argc != 3) return BadUsage("dump takes one FILE");
    return RunDump(argv[2]);
  }
  if (!std::strcmp(command, "sample")) {
    if (argc != 3 && argc != 4) return BadUsage("sample takes FILE [TYPE]");
    return RunSample(argv[2], argc == 4 ? argv[3] : nullptr);
  }
  std::fprintf(stderr, "oxtool: unknown command '%s'\n%s", command, kUsage);
  return 2;
}
