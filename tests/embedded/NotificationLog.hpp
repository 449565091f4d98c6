#pragma once

#include <functional>
#include <QStringList>
#include <treemodel/kernel/KestoInterface.hpp>

/// An observer that is registered from its construction on and writes down each notification that
/// a kernel of the tests may send, as "surface_created 3".
class NotificationLog : public KestoInterface::KIObserve
{
public:
    NotificationLog() { register_observer(); }

    /// Called with each entry after it was written, inside the notification.
    std::function<void(const QString&)> on_event;

    /// What was written since the last call, joined by ", ".
    QString take()
    {
        QString text = m_events.join(QStringLiteral(", "));
        m_events.clear();
        return text;
    }
    QStringList events() const { return m_events; }

    void notify_free_entities_changed() override { write("free_entities_changed"); }
    void notify_model_refresh_requested() override { write("model_refresh_requested"); }
    void notify_geometry_repair_complete() override { write("geometry_repair_complete"); }
    void notify_model_reset() override { write("model_reset"); }
    void notify_model_replaced() override { write("model_replaced"); }
    void notify_kes_file_opened(std::string file) override { write("kes_file_opened", file); }

    void notify_body_created(int id) override { write("body_created", id); }
    void notify_body_added(int id) override { write("body_added", id); }
    void notify_body_modified(int id) override { write("body_modified", id); }
    void notify_body_changed(int id) override { write("body_changed", id); }
    void notify_body_deleted(int id) override { write("body_deleted", id); }
    void notify_body_removed(int id) override { write("body_removed", id); }
    void notify_volume_created(int id) override { write("volume_created", id); }
    void notify_volume_modified(int id) override { write("volume_modified", id); }
    void notify_volume_deleted(int id) override { write("volume_deleted", id); }
    void notify_surface_created(int id) override { write("surface_created", id); }
    void notify_surface_added(int id) override { write("surface_added", id); }
    void notify_surface_modified(int id) override { write("surface_modified", id); }
    void notify_surface_deleted(int id) override { write("surface_deleted", id); }
    void notify_surface_removed(int id) override { write("surface_removed", id); }
    void notify_curve_created(int id) override { write("curve_created", id); }
    void notify_curve_added(int id) override { write("curve_added", id); }
    void notify_curve_deleted(int id) override { write("curve_deleted", id); }
    void notify_curve_removed(int id) override { write("curve_removed", id); }
    void notify_vertex_created(int id) override { write("vertex_created", id); }
    void notify_vertex_added(int id) override { write("vertex_added", id); }
    void notify_vertex_deleted(int id) override { write("vertex_deleted", id); }
    void notify_vertex_removed(int id) override { write("vertex_removed", id); }

    void notify_group_created(int id) override { write("group_created", id); }
    void notify_group_modified(int id) override { write("group_modified", id); }
    void notify_group_deleted(int id) override { write("group_deleted", id); }

    void notify_sizing_source_created(int id) override { write("sizing_source_created", id); }
    void notify_sizing_source_deleted(int id) override { write("sizing_source_deleted", id); }
    void notify_boundary_layer_created(int id) override { write("boundary_layer_created", id); }
    void notify_boundary_layer_deleted(int id) override { write("boundary_layer_deleted", id); }

    void notify_exodus_entity_modified(std::string type, int id, std::string action) override
    {
        write("exodus_entity_modified", type, id, action);
    }
    void notify_material_modified(int id, std::string action) override
    {
        write("material_modified", id, action);
    }
    void notify_medium_modified(int id, std::string action) override
    {
        write("medium_modified", id, action);
    }
    void notify_fea_bc_modified(std::string type, int id, std::string action) override
    {
        write("fea_bc_modified", type, id, action);
    }
    void notify_bc_modified(std::string type, int id, std::string action) override
    {
        write("bc_modified", type, id, action);
    }
    void notify_constraint_modified(int id, std::string action) override
    {
        write("constraint_modified", id, action);
    }

    void notify_entities_selected(const std::vector<KestoInterface::EntityRef>& refs) override
    {
        write("selected", refs);
    }
    void notify_entities_deselected(const std::vector<KestoInterface::EntityRef>& refs) override
    {
        write("deselected", refs);
    }

    void notify_exodus_visibility_changed(std::string type, int id) override
    {
        write("exodus_visibility_changed", type, id);
    }
    void notify_entity_id_changed(std::string type, int old_id, int new_id) override
    {
        write("entity_id_changed", type, old_id, new_id);
    }
    void notify_entity_name_changed(std::string type, int id) override
    {
        write("entity_name_changed", type, id);
    }
    void notify_entity_visibility_changed(std::string type, int id) override
    {
        write("entity_visibility_changed", type, id);
    }

private:
    static QString text(int number) { return QString::number(number); }
    static QString text(const std::string& word) { return QString::fromStdString(word); }
    static QString text(const std::vector<KestoInterface::EntityRef>& refs)
    {
        QStringList words;
        for (const KestoInterface::EntityRef& ref : refs) {
            words << text(ref.type) << text(ref.id);
        }
        return words.join(u' ');
    }

    template <typename... Arguments>
    void write(const char* event, const Arguments&... arguments)
    {
        const QString entry =
            (QStringList{QString::fromLatin1(event)} << ... << text(arguments)).join(u' ');
        m_events << entry;
        if (on_event) {
            on_event(entry);
        }
    }

    QStringList m_events;
};
