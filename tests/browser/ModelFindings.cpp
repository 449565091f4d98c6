#include "ModelFindings.hpp"

namespace {

QString first_finding;
QtMessageHandler next_handler = nullptr;

void collect(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (qstrcmp(context.category, "qt.modeltest") != 0) {
        next_handler(type, context, message);
    } else if (first_finding.isEmpty() &&
               !message.contains("flags == Qt::ItemIsDropEnabled || flags == 0")) {
        first_finding = message;
    }
}

QtMessageHandler install()
{
    first_finding.clear();
    next_handler = qInstallMessageHandler(collect);
    return next_handler;
}

} // namespace

ModelFindings::ModelFindings(QAbstractItemModel& model)
    : m_previous_handler(install())
    , m_tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning)
{
}

ModelFindings::~ModelFindings()
{
    qInstallMessageHandler(m_previous_handler);
}

QString ModelFindings::first() const
{
    return first_finding;
}
