#include "command.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace qvil {
namespace {

std::map<std::string, Command>& commandTable() {
  static std::map<std::string, Command> table;
  return table;
}

std::vector<DemoStep>& demoTable() {
  static std::vector<DemoStep> table;
  return table;
}

}  // namespace

CommandRegistration::CommandRegistration(const Command& command) { commandTable().emplace(command.name, command); }

DemoRegistration::DemoRegistration(const DemoStep& step) {
  auto& steps = demoTable();
  steps.push_back(step);
  std::stable_sort(steps.begin(), steps.end(), [](const DemoStep& a, const DemoStep& b) { return a.order < b.order; });
}

const std::map<std::string, Command>& commands() { return commandTable(); }
const std::vector<DemoStep>& demoSteps() { return demoTable(); }

long long parseInteger(const std::string& what, const std::string& text, long long minimum, long long maximum) {
  errno = 0;
  char* end = nullptr;
  const long long value = std::strtoll(text.c_str(), &end, 0);
  if (text.empty() || *end != '\0' || errno != 0)
    throw UsageError(what + " must be a whole number, not '" + text + "'");
  if (value < minimum || value > maximum)
    throw UsageError(what + " must be between " + std::to_string(minimum) + " and " + std::to_string(maximum));
  return value;
}

Arguments::Arguments(const std::vector<std::string>& words, const std::vector<std::string>& flagNames) {
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word.size() > 2 && word.compare(0, 2, "--") == 0) {
      const std::string name = word.substr(2);
      if (std::find(flagNames.begin(), flagNames.end(), name) != flagNames.end()) {
        flags_.push_back(name);
        continue;
      }
      if (i + 1 >= words.size()) throw UsageError("option --" + name + " needs a value");
      options_[name] = words[++i];
    } else {
      positional_.push_back(word);
    }
  }
}

void Arguments::expectPositional(size_t count) const {
  if (positional_.size() != count)
    throw UsageError("expected " + std::to_string(count) + " file argument(s), got " +
                     std::to_string(positional_.size()));
}

bool Arguments::flag(const std::string& name) const {
  return std::find(flags_.begin(), flags_.end(), name) != flags_.end();
}

std::string Arguments::text(const std::string& name, const std::string& fallback) const {
  const auto found = options_.find(name);
  return found != options_.end() ? found->second : fallback;
}

long long Arguments::integer(const std::string& name, long long fallback, long long minimum, long long maximum) const {
  const auto found = options_.find(name);
  if (found == options_.end()) return fallback;
  return parseInteger("--" + name, found->second, minimum, maximum);
}

double Arguments::real(const std::string& name, double fallback) const {
  const auto found = options_.find(name);
  if (found == options_.end()) return fallback;
  char* end = nullptr;
  const double value = std::strtod(found->second.c_str(), &end);
  if (found->second.empty() || *end != '\0')
    throw UsageError("--" + name + " must be a number, not '" + found->second + "'");
  return value;
}

void Arguments::allowOnly(const std::vector<std::string>& names) const {
  for (const auto& [name, value] : options_)
    if (std::find(names.begin(), names.end(), name) == names.end()) throw UsageError("unknown option --" + name);
}

}  // namespace qvil
