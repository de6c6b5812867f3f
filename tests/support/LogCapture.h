#pragma once
#include <string>

#include "TestSupport.h"

// What `action` writes to standard output (the log goes there). The capture
// ends before the caller asserts, so test failures stay visible.
template <typename Action>
std::string logOf(Action&& action) {
    TestSupport::CapturedStdout out;
    action();
    return out.text();
}
