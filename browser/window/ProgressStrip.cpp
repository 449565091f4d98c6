#include <browser/window/ProgressStrip.hpp>

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

ProgressStrip::ProgressStrip(QWidget* parent)
    : QWidget(parent)
    , m_text(new QLabel)
    , m_bar(new QProgressBar)
{
    auto* const cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName("cancel");
    connect(cancel, &QPushButton::clicked, this, &ProgressStrip::cancel_clicked);
    m_bar->setFixedWidth(160);

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
    layout->addWidget(cancel);
    hide();
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

void ProgressStrip::end()
{
    hide();
}
