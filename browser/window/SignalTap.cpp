#include <browser/window/SignalTap.hpp>

#include <browser/items/MirrorRecords.hpp>
#include <browser/window/SignalEar.hpp>
#include <browser/window/SignalLog.hpp>
#include <QElapsedTimer>
#include <QMetaMethod>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

constexpr qint64 slice_in_milliseconds = 5;

// "surface 3". A record in destruction no longer knows its kind.
QString short_text(TreeData* record)
{
    const bool has_kind = record->metaObject() != &TreeData::staticMetaObject;
    return QStringLiteral("%1 %2")
        .arg(has_kind ? QString::fromStdString(item_kind_info(item_kind(record)).word)
                      : QStringLiteral("record"))
        .arg(record->id());
}

QString long_text(TreeData* record)
{
    return QStringLiteral("%1 \"%2\"").arg(short_text(record), record->name());
}

QString argument_text(QMetaType type, const void* value)
{
    if (type.flags().testFlag(QMetaType::PointerToQObject)) {
        auto* const record = qobject_cast<TreeData*>(*static_cast<QObject* const*>(value));
        return record ? long_text(record) : QStringLiteral("none");
    }
    if (type == QMetaType::fromType<std::vector<TreeData*>>()) {
        const auto& records = *static_cast<const std::vector<TreeData*>*>(value);
        return records.size() == 1 ? long_text(records.front())
                                   : SignalTap::tr("%1 records").arg(records.size());
    }
    return QVariant(type, value).toString();
}

} // namespace

/// Writes down what it hears, and leaves when all that it listened to has died.
class SignalTap::Ear : public SignalEar
{
public:
    Ear(SignalLog& log, QObject* parent)
        : SignalEar(parent)
        , m_log(log)
    {
    }

protected:
    void hear(QObject* speaker, const QMetaMethod& signal, void** arguments) override
    {
        QStringList texts;
        for (int i = 0; i < signal.parameterCount(); ++i) {
            texts << argument_text(signal.parameterMetaType(i), arguments[i + 1]);
        }
        auto* const record = qobject_cast<TreeData*>(speaker);
        const QString sender = record ? short_text(record) : QStringLiteral("TreeModel");
        m_log.append(sender, QString::fromLatin1(signal.name()), texts.join(QLatin1String(", ")));

        static const QMetaMethod death = QMetaMethod::fromSignal(&TreeData::treedata_destroyed);
        if (signal == death && ++m_deaths == Capacity) {
            deleteLater();
        }
    }

private:
    SignalLog& m_log;
    int m_deaths = 0;
};

SignalTap::SignalTap(TreeModel& mirror, SignalLog& log)
    : m_mirror(mirror)
    , m_log(log)
{
    // First, so that a record's added signal is written before its own ones.
    listen(&mirror);
    connect(&mirror, &TreeModel::geometry_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::group_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::mesh_data_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::sizing_source_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::boundary_layer_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::exodus_entity_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::fea_bc_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::cfd_bc_added, this, &SignalTap::listen);
    connect(&mirror, &TreeModel::material_added, this, &SignalTap::listen);

    queue_present_records();
    connect(&m_take_in_timer, &QTimer::timeout, this, &SignalTap::take_in_some);
    m_take_in_timer.start(0);
}

void SignalTap::listen(QObject* speaker)
{
    if (!m_ear || m_ear->is_full()) {
        m_ear = new Ear(m_log, this);
    }
    m_ear->listen(speaker);
}

void SignalTap::queue_present_records()
{
    const MirrorRecords records(m_mirror);
    for (int kind = 0; kind < int(ItemKind::FirstCategory); ++kind) {
        for (TreeData* record : records.all(ItemKind(kind))) {
            m_unheard.emplace_back(record);
        }
    }
    for (TreeData* record : m_mirror.mesh_data()) {
        m_unheard.emplace_back(record);
    }
}

void SignalTap::take_in_some()
{
    QElapsedTimer clock;
    clock.start();
    while (!m_unheard.empty() && !clock.hasExpired(slice_in_milliseconds)) {
        if (TreeData* record = m_unheard.front()) {
            listen(record);
        }
        m_unheard.pop_front();
    }
    if (m_unheard.empty()) {
        m_take_in_timer.stop();
    }
}
