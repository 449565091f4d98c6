#include "fuzz_target.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <QGuiApplication>
#include <QLoggingCategory>

// A hundred actions do whatever more of them can, and each is followed by a look at the whole tree.
static constexpr std::size_t longest_input = 400;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    // The marks are the host's to supply, and this host has none.
    QLoggingCategory::setFilterRules("qt.svg.warning=false");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    run_fuzz_input({data, std::min(size, longest_input)});
    return 0;
}

void report(const QString& wrong)
{
    if (!wrong.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(wrong));
        std::abort();
    }
}
