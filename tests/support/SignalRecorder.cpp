#include <support/SignalRecorder.hpp>

#include <QVariant>
#include <support/RecordText.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <treemodel/treedata/TreeMeshData.hpp>

namespace {

constexpr QLatin1String mesh_owner(" of ");

} // namespace

SignalRecorder::SignalRecorder(EventLog& log, Naming naming)
    : m_log(log)
    , m_naming(naming)
{
}

SignalRecorder::~SignalRecorder() = default;

void SignalRecorder::watch(QObject* sender)
{
    if (m_watched.contains(sender)) {
        return;
    }
    m_watched.insert(sender, {});
    // Not earlier: a record is spoken of while it dies.
    connect(sender, &QObject::destroyed, this, [this, sender] { m_watched.remove(sender); });
    const QMetaObject* meta = sender->metaObject();
    const int first_slot = QObject::staticMetaObject.methodCount();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal) {
            QMetaObject::connect(
                sender, i, this, first_slot + int(m_connections.size()), Qt::DirectConnection);
            m_connections.push_back({sender, meta->method(i)});
        }
    }
}

int SignalRecorder::qt_metacall(QMetaObject::Call call, int id, void** arguments)
{
    const int slot = QObject::qt_metacall(call, id, arguments);
    if (slot < 0 || call != QMetaObject::InvokeMetaMethod) {
        return slot;
    }
    record(Connection(m_connections[slot]), arguments);
    return -1;
}

void SignalRecorder::record(const Connection& connection, void** arguments)
{
    if (m_naming == ByKind && connection.signal.name() == "mesh_data_added") {
        name_mesh_record(
            *static_cast<TreeMeshData**>(arguments[1]), *static_cast<TreeData**>(arguments[2]));
    }
    QStringList texts;
    for (int i = 0; i < connection.signal.parameterCount(); ++i) {
        texts.append(text_of(connection.signal.parameterMetaType(i), arguments[i + 1]));
    }
    QString prefix;
    if (qobject_cast<TreeData*>(connection.sender)) {
        prefix = name_of(connection.sender) + QLatin1String(": ");
    }
    m_log.add(prefix + QLatin1String(connection.signal.name()) + QLatin1Char('(') +
              texts.join(QLatin1String(", ")) + QLatin1Char(')'));
}

QString SignalRecorder::text_of(const QMetaType& type, const void* value)
{
    if (type.flags() & QMetaType::PointerToQObject) {
        return name_of(*static_cast<QObject* const*>(value));
    }
    if (type == QMetaType::fromType<std::vector<TreeData*>>()) {
        QStringList names;
        for (TreeData* record : *static_cast<const std::vector<TreeData*>*>(value)) {
            names.append(name_of(record));
        }
        return QLatin1Char('[') + names.join(QLatin1String(", ")) + QLatin1Char(']');
    }
    return QVariant(type, value).toString();
}

QString SignalRecorder::name_of(QObject* object)
{
    auto* record = qobject_cast<TreeData*>(object);
    if (!record) {
        return QStringLiteral("null");
    }
    watch(record);
    QString& known = m_watched[record];
    const QString text = text_of_record(record);
    const QLatin1String dying("TreeData ");
    const bool is_dying = text.startsWith(dying) && !known.startsWith(dying);
    if (known.isEmpty() || !(is_dying || known.startsWith(text + mesh_owner))) {
        known = text;
    }
    return known;
}

void SignalRecorder::name_mesh_record(TreeMeshData* record, TreeData* owner)
{
    watch(record);
    m_watched[record] = record_text(record) + mesh_owner + name_of(owner);
}

QString SignalRecorder::text_of_record(TreeData* record) const
{
    if (m_naming == ByKind || qobject_cast<TreeGeometryData*>(record)) {
        return record_text(record);
    }
    return QLatin1String(record->metaObject()->className()) + QLatin1Char(' ') +
           QString::number(record->id());
}
