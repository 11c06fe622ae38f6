// "tqm demo": a tour of the library on a demo installation made on the spot.
// Each area of the library adds a step with TQM_REGISTER_DEMO_STEP; the steps
// run in the order of their numbers, each under its title.
#pragma once

#include "tools/tqm/Command.h"

#include <string>

namespace tqmtool {

struct DemoStep
{
    int order;
    const char* title;
    // Prints what the step shows; demoDir is the demo installation's folder
    // (it exists, without a trailing backslash). Returns false on a failure.
    bool (*run)(const std::string& demoDir);
};

bool RegisterDemoStep(const DemoStep& step);

}  // namespace tqmtool

#define TQM_REGISTER_DEMO_STEP(...) \
    static const bool TQM_CONCAT(g_demo_step_, __LINE__) = tqmtool::RegisterDemoStep(__VA_ARGS__)
