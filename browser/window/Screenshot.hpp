#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class MainWindow;

/// Writes a picture of a window to a file as soon as all that it has to show is shown.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// Keeps the reference. The ending of `picture` decides its format.
    Screenshot(MainWindow& window, const QString& picture);

    /// Begins to wait for the window.
    void take();

Q_SIGNALS:
    void taken();

    /// The picture could not be written; `sentence` tells which and why.
    void failed(const QString& sentence);

private:
    void write_if_settled();

    MainWindow& m_window;
    QString m_picture;
    QTimer m_wait_timer;
    int m_settled_looks = 0; // In a row
};
