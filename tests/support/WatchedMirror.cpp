#include <support/WatchedMirror.hpp>

#include <QMap>

WatchedMirror::WatchedMirror()
{
    recorder.watch(&model);
    model.connect_to_kesto();
    log.take();
}

void WatchedMirror::refresh()
{
    model.refresh_model(false);
    log.take();
}

QStringList WatchedMirror::take_geometry()
{
    return log.take_only(
        {"get_entities(", "get_list_of_free_ref_entities(", "get_relatives(", "get_entity_name(",
            "is_visible(", "is_virtual(", "contains_virtual(", "is_sheet_body(", "geometry_",
            "about_to_clear_geometry(", "body ", "volume ", "surface ", "curve ", "vertex "});
}

QStringList plain_reading(const QString& word, int id)
{
    const QString body = "get_relatives(body, %2, volume)";
    const QMap<QString, QStringList> children{{"body", {body}},
        {"volume", {"get_relatives(volume, %2, surface)"}},
        {"surface", {"get_relatives(surface, %2, curve)"}},
        {"curve", {"get_relatives(curve, %2, vertex)"}}, {"vertex", {}}};
    QStringList lines;
    if (word == "body") {
        lines << body;
    }
    lines << "get_entity_name(%1, %2, true)"
          << "is_visible(%1, %2)"
          << "%1 %2: visible_changed(true)"
          << (word == "volume" ? "contains_virtual(%1, %2)" : "is_virtual(%1, %2)")
          << children.value(word);
    for (QString& line : lines) {
        line.replace("%1", word).replace("%2", QString::number(id));
    }
    return lines;
}

void script_small_model(RecordingKernel& kernel)
{
    kernel.entities = {{"body", {1, 2}}, {"volume", {1, 2, 3}}, {"surface", {1, 2, 3, 4, 9}},
        {"curve", {1, 2, 3, 8}}, {"vertex", {1, 2, 3, 7}}};
    kernel.free_entities = {{"surface", {9}}, {"curve", {8}}, {"vertex", {7}}};
    kernel.relate("body", 1, "volume", {1, 2});
    kernel.relate("body", 2, "volume", {3});
    kernel.relate("volume", 1, "surface", {1, 2});
    kernel.relate("volume", 2, "surface", {2, 3});
    kernel.relate("volume", 3, "surface", {4});
    kernel.relate("surface", 1, "curve", {1, 2});
    kernel.relate("surface", 2, "curve", {2, 3});
    kernel.relate("surface", 4, "curve", {3});
    kernel.relate("surface", 9, "curve", {1});
    kernel.relate("curve", 1, "vertex", {1, 2});
    kernel.relate("curve", 2, "vertex", {2, 3});
    kernel.relate("curve", 8, "vertex", {3});
    kernel.names = {{{"body", 1}, "Housing"}, {{"volume", 1}, "Left"}, {{"volume", 2}, "Right"},
        {{"surface", 2}, "Interface"}, {{"curve", 2}, "Rim"}, {{"vertex", 7}, "Origin"}};
    kernel.hidden = {{"volume", 2}, {"curve", 8}};
    kernel.virtual_entities = {{"surface", 2}, {"curve", 2}};
    kernel.containing_virtual = {{"volume", 1}, {"volume", 2}};
    kernel.sheet_volumes = {3};
}
