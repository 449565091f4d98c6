#include <browser/window/ProgressStrip.hpp>

#include <importers/HelperJob.hpp>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

ProgressStrip::ProgressStrip(QWidget* parent)
    : QWidget(parent)
    , m_cancel(new QPushButton(tr("Cancel")))
    , m_text(new QLabel)
    , m_bar(new QProgressBar)
{
    m_cancel->setObjectName("cancel");
    m_text->setTextFormat(Qt::PlainText);
    m_bar->setFixedWidth(160);

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    hide();
}

void ProgressStrip::follow(HelperJob& job)
{
    connect(&job, &HelperJob::progress, this, &ProgressStrip::set_progress);
    connect(&job, &HelperJob::finished, this, [this, &job] { setVisible(job.is_running()); });
    connect(m_cancel, &QPushButton::clicked, &job, &HelperJob::cancel);
}

void ProgressStrip::begin(const QString& task)
{
    m_task = task;
    m_text->setText(task);
    m_bar->setRange(0, 0);
    show();
}

void ProgressStrip::set_progress(const QString& stage, double fraction)
{
    constexpr int steps = 1000;
    m_text->setText(QStringLiteral("%1: %2").arg(m_task, stage));
    m_bar->setRange(0, fraction < 0 ? 0 : steps);
    m_bar->setValue(static_cast<int>(fraction * steps));
}
