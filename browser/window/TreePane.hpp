#pragma once

#include <QWidget>
#include <treemodel/entity/EntityModel.hpp>

class KernelSession;
class QTreeView;

/// The tree of a session's mirror as a person sees it.
class TreePane : public QWidget
{
    Q_OBJECT

public:
    /// Keeps the reference.
    explicit TreePane(KernelSession& session, QWidget* parent = nullptr);

    QTreeView* view() const { return m_view; }

    void set_filter(const QString& text);

    /// Expands the first `levels` levels of the tree.
    void expand_levels(int levels);

    /// True if everything is shown that there is to show.
    bool is_settled() const;

private:
    EntityModel m_items;
    QTreeView* m_view;
};
