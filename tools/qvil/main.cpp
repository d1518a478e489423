// qvil: the command line of QVImageLib. `qvil help` lists the commands; `qvil CMD --help`
// explains one.

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "command.h"

namespace {

void printOverview(FILE* out) {
  fprintf(out, "usage: qvil COMMAND [ARGUMENTS]\n\nCommands:\n");
  for (const auto& [name, command] : qvil::commands()) fprintf(out, "  %-10s %s\n", name.c_str(), command.summary);
  fprintf(out, "\n`qvil COMMAND --help` explains a command.\n");
}

void printUsage(const qvil::Command& command, FILE* out) {
  fprintf(out, "%s\n\nusage: qvil %s\n", command.summary, command.usage);
}

bool wantsHelp(const std::vector<std::string>& words) {
  for (const std::string& word : words)
    if (word == "--help" || word == "-h") return true;
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || std::strcmp(argv[1], "help") == 0 || std::strcmp(argv[1], "--help") == 0 ||
      std::strcmp(argv[1], "-h") == 0) {
    printOverview(argc < 2 ? stderr : stdout);
    return argc < 2 ? 2 : 0;
  }
  const auto found = qvil::commands().find(argv[1]);
  if (found == qvil::commands().end()) {
    fprintf(stderr, "qvil: unknown command '%s'\n\n", argv[1]);
    printOverview(stderr);
    return 2;
  }
  const qvil::Command& command = found->second;
  const std::vector<std::string> words(argv + 2, argv + argc);
  if (wantsHelp(words)) {
    printUsage(command, stdout);
    return 0;
  }
  try {
    return command.run(qvil::Arguments(words, command.flags));
  } catch (const qvil::UsageError& error) {
    fprintf(stderr, "qvil %s: %s\n\n", command.name, error.what());
    printUsage(command, stderr);
    return 2;
  } catch (const std::exception& error) {
    fprintf(stderr, "qvil %s: %s\n", command.name, error.what());
    return 1;
  }
}
