// qvil demo: runs one step of every area on generated images and writes the results to a folder.

#include <sys/stat.h>

#include <cstdio>
#include <string>

#include "command.h"

namespace {

int runDemo(const qvil::Arguments& arguments) {
  arguments.expectPositional(0);
  arguments.allowOnly({"out"});
  qvil::DemoContext context{arguments.text("out", "qvil-demo")};
  if (mkdir(context.directory.c_str(), 0755) != 0 && errno != EEXIST)
    throw qvil::RunError("cannot make folder '" + context.directory + "'");
  for (const qvil::DemoStep& step : qvil::demoSteps()) {
    printf("== %s\n", step.title);
    fflush(stdout);
    step.run(context);
  }
  printf("== done: results in %s/\n", context.directory.c_str());
  return 0;
}

const qvil::CommandRegistration registration({"demo",
                                              "Run every operation once on generated images",
                                              "demo [--out FOLDER]   (default folder: qvil-demo)",
                                              {},
                                              runDemo});

}  // namespace
