#pragma once

#include "KernelScript.hpp"

#include <functional>
#include <QString>

/// Plays a script and says what was wrong; empty if nothing was.
using ScriptPlay = std::function<QString(const KernelScript&)>;

/// Plays a random script of so many operations. If something was wrong, fails the running test with
/// the shortest part of the script for which `replay` still finds something wrong.
void check_random_script(
    unsigned seed, int length, const ScriptPlay& play, const ScriptPlay& replay);

/// The number in an environment variable; `otherwise` if there is none.
int from_environment(const char* variable, int otherwise);
