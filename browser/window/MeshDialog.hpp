#pragma once

#include <importers/MeshJob.hpp>
#include <QDialog>

class QDoubleSpinBox;
class QSpinBox;

/// Asks for the size and the order of the elements of a mesh. What was given last is kept in
/// QSettings.
class MeshDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MeshDialog(QWidget* parent = nullptr);

    MeshJob::Options options() const;

    void accept() override;

private:
    QDoubleSpinBox* m_size;
    QSpinBox* m_order;
};
