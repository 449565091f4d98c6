#include <browser/window/MeshDialog.hpp>

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>

namespace {

constexpr const char* size_key = "mesh/element_size";
constexpr const char* order_key = "mesh/element_order";

} // namespace

MeshDialog::MeshDialog(QWidget* parent)
    : QDialog(parent)
    , m_size(new QDoubleSpinBox)
    , m_order(new QSpinBox)
{
    constexpr double smallest = 1e-6;
    constexpr double largest = 1e6;
    constexpr double first_size = 10;
    constexpr int highest_order = 3;
    const QSettings settings;

    setWindowTitle(tr("Mesh This Model"));
    m_size->setDecimals(6);
    m_size->setRange(smallest, largest);
    m_size->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    m_size->setValue(settings.value(size_key, first_size).toDouble());
    m_order->setRange(1, highest_order);
    m_order->setValue(settings.value(order_key, 1).toInt());

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Mesh"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QFormLayout(this);
    layout->addRow(tr("Element &size, in units of the model:"), m_size);
    layout->addRow(tr("Element &order:"), m_order);
    layout->addRow(buttons);
}

MeshJob::Options MeshDialog::options() const
{
    return {.element_size = m_size->value(), .element_order = m_order->value()};
}

void MeshDialog::accept()
{
    QSettings settings;
    settings.setValue(size_key, m_size->value());
    settings.setValue(order_key, m_order->value());
    QDialog::accept();
}
