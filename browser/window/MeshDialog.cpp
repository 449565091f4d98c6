#include <browser/window/MeshDialog.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>

namespace {

constexpr const char* order_key = "mesh/element_order";

} // namespace

MeshDialog::MeshDialog(double element_size, QWidget* parent)
    : QDialog(parent)
    , m_size(new QDoubleSpinBox)
    , m_order(new QSpinBox)
{
    constexpr double smallest = 1e-6;
    constexpr double largest = 1e6;
    constexpr int highest_order = 3;
    const QSettings settings;

    setWindowTitle(tr("Mesh This Model"));
    m_size->setDecimals(6);
    m_size->setRange(smallest, largest);
    m_size->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    m_size->setValue(element_size);
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

double MeshDialog::size_for(double extent)
{
    constexpr double elements_along_diagonal = 40;
    if (extent <= 0) {
        return 1;
    }
    const double size = extent / elements_along_diagonal;
    const double power = std::pow(10, std::floor(std::log10(size)));
    // From which multiple of the power on which one is nearest, on a logarithmic scale.
    constexpr std::array steps{
        std::pair(7.1, 10.0), std::pair(3.2, 5.0), std::pair(1.4, 2.0), std::pair(0.0, 1.0)};
    const auto step = std::find_if(
        steps.begin(), steps.end(), [&](const auto& row) { return size / power >= row.first; });
    return step->second * power;
}

MeshJob::Options MeshDialog::options() const
{
    return {.element_size = m_size->value(), .element_order = m_order->value()};
}

void MeshDialog::accept()
{
    QSettings settings;
    settings.setValue(order_key, m_order->value());
    QDialog::accept();
}
