#pragma once

#include <QPointer>
#include <treemodel/treedata/TreeData.hpp>
#include <vector>

class EmbeddedKernel;
class TreeModel;

/// Shows some entities and hides all others, and gives each back the visibility that it had.
///
/// What can be hidden is geometry, groups and sets. With an entity its parts are shown, with a
/// group its members, and whatever holds the entity: the geometry above it, and its groups.
class ShowOnly
{
public:
    /// Keeps the references.
    ShowOnly(EmbeddedKernel& kernel, TreeModel& mirror);

    /// Remembers the visibility of all, unless it does so already: restore() goes back to before
    /// the first of several calls. What has come since is remembered as it is now.
    void show(const std::vector<TreeData*>& records);

    /// Gives back what was remembered, whatever was shown or hidden meanwhile, and forgets it.
    void restore();

    /// Forgets what was remembered.
    void forget() { m_former.clear(); }

    /// True if there is something to restore.
    bool is_on() const { return !m_former.empty(); }

private:
    struct Former
    {
        QPointer<TreeData> record;
        bool is_visible = true;
    };

    void remember(const std::vector<TreeData*>& records);
    void set_visible(const std::vector<Former>& wanted);

    EmbeddedKernel& m_kernel;
    TreeModel& m_mirror;
    std::vector<Former> m_former;
};
