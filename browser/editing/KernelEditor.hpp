#pragma once

#include <browser/editing/KernelEntity.hpp>
#include <browser/editing/ShowOnly.hpp>
#include <QObject>
#include <vector>

class EmbeddedKernel;
class TreeData;
class TreeModel;

/// What a person can do to the model: each operation takes records of the mirror and carries
/// itself out in the kernel.
///
/// It touches neither mirror nor tree: what has changed comes back as notifications of the kernel.
/// An operation either takes all the records given or, if it cannot, changes nothing, emits
/// failed() and returns false. Null and element counts, which are no entities, are passed over.
class KernelEditor : public QObject
{
    Q_OBJECT

public:
    using Records = std::vector<TreeData*>;

    /// `mirror` is one of `kernel` and follows it. Both must outlive the editor.
    KernelEditor(EmbeddedKernel& kernel, TreeModel& mirror, QObject* parent = nullptr);

    /// What the receiver of EntityModel::nameEdited() calls. An empty name gives the entity its
    /// default name back. The mark of a virtual entity is no part of its name. Refused for what
    /// has no name and for a text of more than one line.
    bool rename(TreeData* record, const QString& name);

    /// Geometry, groups and sets can be shown and hidden.
    bool set_visible(const Records& records, bool is_visible);

    /// ShowOnly::show() and ShowOnly::restore(), which fails if there is nothing to restore, as
    /// when the mirror has been cleared since.
    bool show_only(const Records& records);
    bool restore_visibility();
    bool can_restore_visibility() const { return m_show_only.is_on(); }

    /// Deletes the entities. One that went along with another is passed over.
    bool remove(const Records& records);

    /// A group of geometry and groups. No record makes an empty one.
    bool create_group(const Records& members, const QString& name = {});

    /// A block, sideset or nodeset. The kernel's sets have no members: where some are given, they
    /// go into a group beside the set that bears its name.
    bool create_set(EntityKind kind, const Records& members, const QString& name = {});

    /// A boundary condition on sidesets and nodesets, or on none yet.
    bool create_condition(EntityKind kind, const Records& sets, const QString& name = {});

    /// Has a boundary condition apply to these sets in the place of its own.
    bool set_condition_sets(TreeData* condition, const Records& sets);

    bool create_material(const QString& name = {});
    bool create_medium(const QString& name = {});
    bool create_sizing_source();
    bool create_boundary_layer();

    /// All kinds that create_condition() takes, those of finite elements first.
    static std::vector<EntityKind> condition_kinds();

Q_SIGNALS:
    /// An operation was refused, for the reason told.
    void failed(const QString& sentence);

    void can_restore_visibility_changed(bool can_restore);

private:
    struct Requirement;
    using Entities = std::vector<KernelEntity>;

    void forget_visibility();
    template <typename Operation>
    bool run(Operation operation);
    bool take(const Records& records, const Requirement& requirement, Entities& entities);
    bool refuse(const QString& sentence);
    void fill_group(int group, const Entities& members);

    EmbeddedKernel& m_kernel;
    ShowOnly m_show_only;
};
