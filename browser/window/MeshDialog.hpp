#pragma once

#include <importers/MeshJob.hpp>
#include <QDialog>

class QDoubleSpinBox;
class QSpinBox;

/// Asks for the size and the order of the elements of a mesh. The order that was given last is
/// kept in QSettings.
class MeshDialog : public QDialog
{
    Q_OBJECT

public:
    /// Proposes a size of the elements.
    explicit MeshDialog(double element_size, QWidget* parent = nullptr);

    /// A round size, 1, 2 or 5 times a power of 10, by which a model of this extent has some tens
    /// of elements along its diagonal. 1 for an extent of 0, which is an unknown one.
    static double size_for(double extent);

    MeshJob::Options options() const;

    void accept() override;

private:
    QDoubleSpinBox* m_size;
    QSpinBox* m_order;
};
