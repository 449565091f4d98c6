#include <browser/window/SignalEar.hpp>

#include <QMetaMethod>

void SignalEar::listen(QObject* speaker)
{
    ++m_speakers;
    const QMetaObject* const meta = speaker->metaObject();
    const int first = QObject::staticMetaObject.methodCount();
    for (int method = first; method < meta->methodCount(); ++method) {
        if (meta->method(method).methodType() == QMetaMethod::Signal) {
            QMetaObject::connect(speaker, method, this, method, Qt::DirectConnection);
        }
    }
}

int SignalEar::qt_metacall(QMetaObject::Call call, int id, void** arguments)
{
    const int own_id = QObject::qt_metacall(call, id, arguments);
    if (own_id < 0 || call != QMetaObject::InvokeMetaMethod) {
        return own_id;
    }
    QObject* const speaker = sender();
    hear(speaker, speaker->metaObject()->method(id), arguments);
    return -1;
}
