#include <support/SignalRecorder.hpp>

#include <QVariant>
#include <treemodel/treedata/TreeGeometryData.hpp>

namespace {

// "surface 5"; a record of any other class bears the name of its class.
QString record_text(TreeData* record)
{
    QString kind = QLatin1String(record->metaObject()->className());
    if (auto* geometry = qobject_cast<TreeGeometryData*>(record)) {
        kind = QString::fromStdString(TreeGeometryData::type_to_string(geometry->geometry_type()));
    }
    return kind + QLatin1Char(' ') + QString::number(record->id());
}

} // namespace

SignalRecorder::SignalRecorder(EventLog& log)
    : m_log(log)
{
}

SignalRecorder::~SignalRecorder() = default;

void SignalRecorder::watch(QObject* sender)
{
    if (m_watched.contains(sender)) {
        return;
    }
    m_watched.insert(sender, {});
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
    QStringList texts;
    for (int i = 0; i < connection.signal.parameterCount(); ++i) {
        texts.append(text_of(connection.signal.parameterMetaType(i), arguments[i + 1]));
    }
    QString prefix;
    if (qobject_cast<TreeData*>(connection.sender)) {
        prefix = name_of(connection.sender) + QLatin1String(": ");
    }
    if (connection.signal.name() == "treedata_destroyed") {
        m_watched.remove(connection.sender);
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
    const QString text = record_text(record);
    const QLatin1String dying("TreeData ");
    if (known.isEmpty() || known.startsWith(dying) || !text.startsWith(dying)) {
        known = text;
    }
    return known;
}
