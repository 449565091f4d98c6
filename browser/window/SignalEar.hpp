#pragma once

#include <QObject>

/// Hears every signal of a number of objects, whatever its arguments: each ends in
/// qt_metacall(), as if it were called as a method of that number.
///
/// A receiver finds its sender by a linear search of its connections, so an ear
/// takes no more than Capacity objects.
class SignalEar : public QObject
{
public:
    static constexpr int Capacity = 64;

    using QObject::QObject;

    /// Hears the signals that `speaker` has of its own and of its bases below QObject.
    void listen(QObject* speaker);

    bool is_full() const { return m_speakers == Capacity; }

    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

protected:
    /// A signal was emitted. `arguments` are those of a meta-call: the first one stands
    /// for the result.
    virtual void hear(QObject* speaker, const QMetaMethod& signal, void** arguments) = 0;

private:
    int m_speakers = 0;
};
