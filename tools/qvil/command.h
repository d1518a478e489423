#ifndef QVIL_COMMAND_H
#define QVIL_COMMAND_H

// The subcommands of qvil. Each command file registers itself, and may register a step of
// `qvil demo`, with a static registration object.

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace qvil {

// A mistake in the command line: reported with the command's usage, exit status 2.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A failure while running (a file that cannot be read, an operation that answered NO): exit 1.
struct RunError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Positional arguments and --name value options of one command line.
class Arguments {
 public:
  Arguments(const std::vector<std::string>& words, const std::vector<std::string>& flagNames);
  const std::vector<std::string>& positional() const { return positional_; }
  // Exactly count positional arguments, or a UsageError.
  void expectPositional(size_t count) const;
  bool flag(const std::string& name) const;
  std::string text(const std::string& name, const std::string& fallback) const;
  long long integer(const std::string& name, long long fallback, long long minimum, long long maximum) const;
  double real(const std::string& name, double fallback) const;
  // Every option given must be one of these.
  void allowOnly(const std::vector<std::string>& names) const;

 private:
  std::vector<std::string> positional_;
  std::map<std::string, std::string> options_;
  std::vector<std::string> flags_;
};

struct Command {
  const char* name;
  const char* summary;
  const char* usage;               // lines after "usage: qvil "
  std::vector<std::string> flags;  // options that take no value
  int (*run)(const Arguments& arguments);
};

// What a demo step works in: a folder for its files.
struct DemoContext {
  std::string directory;
};

struct DemoStep {
  int order;
  const char* title;
  void (*run)(const DemoContext& context);
};

struct CommandRegistration {
  explicit CommandRegistration(const Command& command);
};

struct DemoRegistration {
  explicit DemoRegistration(const DemoStep& step);
};

const std::map<std::string, Command>& commands();
const std::vector<DemoStep>& demoSteps();

// Parses an integer argument within [minimum, maximum], or throws UsageError naming it.
long long parseInteger(const std::string& what, const std::string& text, long long minimum, long long maximum);

}  // namespace qvil

#endif
