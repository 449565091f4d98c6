#pragma once

#include <iostream>
#include <QAbstractItemModel>

/// Prints the rows of a model, children indented: the name, and the id if there is one.
inline void print_rows(
    const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex(), int depth = 0)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QVariant id = index.siblingAtColumn(1).data();
        std::cout << std::string(2 * std::size_t(depth), ' ') << index.data().toString().toStdString();
        if (id.isValid()) {
            std::cout << "  " << id.toInt();
        }
        std::cout << '\n';
        print_rows(model, index, depth + 1);
    }
}
