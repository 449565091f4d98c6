#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

/// The files opened last, the latest first, kept in QSettings, and their menu.
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int MaxFiles = 8;

    using QObject::QObject;

    QStringList files() const;

    /// Puts the file in front.
    void add(const QString& file);

    /// Fills the menu each time it is about to be shown. Not owned.
    void fill(QMenu* menu);

Q_SIGNALS:
    /// The user chose a file from the menu.
    void chosen(const QString& file);

private:
    void rebuild(QMenu* menu);
    void set_files(const QStringList& files);
};
