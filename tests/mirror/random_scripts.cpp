#include "random_scripts.hpp"

#include <QTest>

void check_random_script(
    unsigned seed, int length, const ScriptPlay& play, const ScriptPlay& replay)
{
    const KernelScript script = KernelScript::random(seed, length);
    if (play(script).isEmpty()) {
        return;
    }
    const KernelScript shortest =
        script.shortest([&](const KernelScript& part) { return !replay(part).isEmpty(); });
    const QString message =
        QStringLiteral("Seed %1, after\n%2\n%3").arg(seed).arg(shortest.text(), replay(shortest));
    QFAIL(qPrintable(message));
}

int from_environment(const char* variable, int otherwise)
{
    bool is_number = false;
    const int value = qEnvironmentVariableIntValue(variable, &is_number);
    return is_number ? value : otherwise;
}
