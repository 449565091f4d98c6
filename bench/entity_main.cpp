#include "entity_measure.hpp"

#include <QApplication>
#include <QLoggingCategory>

/// Measures the item model beside floors, which are bare loops over the same items, and
/// peers, which are Qt's own item models. `bench/ratios` prints the ratios.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    // Nobody supplies the mark of an invisible row here.
    QLoggingCategory::setFilterRules("qt.svg.warning=false");

    register_fill();
    register_sort();
    register_edit();
    register_read();
    register_heap();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
