#pragma once

#include <embedded/EntityKind.hpp>
#include <map>
#include <QStringList>
#include <string>
#include <treemodel/kernel/KestoInterface.hpp>
#include <utility>

/// An observer that keeps a picture of the kernel by its notifications alone: it reads an entity
/// anew only when it is told of it, and forgets it only when it is told of its end.
class PlainMirror : public KestoInterface::KIObserve
{
public:
    PlainMirror() { register_observer(); }

    /// One line for each entity that stands in the picture.
    QStringList dump() const;

    /// The same lines, read from the kernel at once.
    static QStringList dump_of_kernel();

    void notify_model_reset() override { m_pictures.clear(); }
    void notify_kes_file_opened(std::string) override { read_everything(); }

    void notify_body_created(int id) override { read(EntityKind::BODY, id); }
    void notify_body_added(int id) override { read(EntityKind::BODY, id); }
    void notify_body_modified(int id) override { read(EntityKind::BODY, id); }
    void notify_body_changed(int id) override { read(EntityKind::BODY, id); }
    void notify_body_deleted(int id) override { forget(EntityKind::BODY, id); }
    void notify_body_removed(int id) override { forget(EntityKind::BODY, id); }
    void notify_volume_created(int id) override { read(EntityKind::VOLUME, id); }
    void notify_volume_modified(int id) override { read(EntityKind::VOLUME, id); }
    void notify_volume_deleted(int id) override { forget(EntityKind::VOLUME, id); }
    void notify_surface_created(int id) override { read(EntityKind::SURFACE, id); }
    void notify_surface_added(int id) override { read(EntityKind::SURFACE, id); }
    void notify_surface_modified(int id) override { read(EntityKind::SURFACE, id); }
    void notify_surface_deleted(int id) override { forget(EntityKind::SURFACE, id); }
    void notify_surface_removed(int id) override { forget(EntityKind::SURFACE, id); }
    void notify_curve_created(int id) override { read(EntityKind::CURVE, id); }
    void notify_curve_added(int id) override { read(EntityKind::CURVE, id); }
    void notify_curve_deleted(int id) override { forget(EntityKind::CURVE, id); }
    void notify_curve_removed(int id) override { forget(EntityKind::CURVE, id); }
    void notify_vertex_created(int id) override { read(EntityKind::VERTEX, id); }
    void notify_vertex_added(int id) override { read(EntityKind::VERTEX, id); }
    void notify_vertex_deleted(int id) override { forget(EntityKind::VERTEX, id); }
    void notify_vertex_removed(int id) override { forget(EntityKind::VERTEX, id); }
    void notify_group_created(int id) override { read(EntityKind::GROUP, id); }
    void notify_group_modified(int id) override { read(EntityKind::GROUP, id); }
    void notify_group_deleted(int id) override { forget(EntityKind::GROUP, id); }

    void notify_entity_name_changed(std::string type, int id) override { reread(type, id); }
    void notify_entity_visibility_changed(std::string type, int id) override { reread(type, id); }
    void notify_entity_id_changed(std::string type, int old_id, int new_id) override;

private:
    struct Picture
    {
        std::string name;
        bool visible = false;
        bool holds_virtual = false;
        bool is_sheet = false;
        std::map<EntityKind, std::vector<int>> children;
    };

    static Picture picture(EntityKind kind, int id);
    void read(EntityKind kind, int id);
    void reread(const std::string& type, int id);
    void forget(EntityKind kind, int id);
    void read_everything();

    std::map<std::pair<EntityKind, int>, Picture> m_pictures;
};
