#pragma once

#include <browser/window/FileOpening.hpp>
#include <browser/window/ModelMeshing.hpp>
#include <browser/window/RecentFiles.hpp>
#include <QObject>

class ProgressStrip;
class QAction;
class QMenu;
class QWidget;

/// How a person gets files into the kernel, and meshes of them: actions, dialogs, progress. No
/// dialog stops the event loop.
class FileActions : public QObject
{
    Q_OBJECT

public:
    /// Keeps the references. The dialogs belong to `window`.
    FileActions(EmbeddedKernel& kernel, QWidget* window);

    /// How far each task is, to be put into a bar.
    QList<ProgressStrip*> progress_strips() const
    {
        return {m_opening_progress, m_meshing_progress};
    }

    FileOpening& opening() { return m_opening; }
    ModelMeshing& meshing() { return m_meshing; }

    void fill_menu(QMenu* menu);

    /// Reads the file; if it is a script, asks first whether it is to be run.
    void open(const QString& file, FileOpening::Mode mode);

    /// Whether the named parts of meshes become blocks, sidesets and nodesets, too.
    void set_makes_sets(bool makes_sets);

    void restore();
    void save() const;

Q_SIGNALS:
    /// The kernel holds the model of opening().file().
    void opened(FileOpening::Mode mode);

    /// What a person may want to know but need not answer.
    void told(const QString& sentence);

private:
    void follow(HelperTask& task, HelperJob& job, ProgressStrip& progress);
    void follow_opening();
    void follow_meshing();
    void choose_file_to_open();
    void choose_file_to_add();
    void choose_file(const QString& title, FileOpening::Mode mode);
    void open_recent(const QString& file);
    void ask_for_trust(const QString& file, FileOpening::Mode mode);
    void take_in_opened(FileOpening::Mode mode);
    void show_warnings();
    void show_error(const QString& sentence);
    void ask_to_mesh();

    ProgressStrip* m_opening_progress;
    ProgressStrip* m_meshing_progress;
    QWidget* m_window; // Not owned
    FileOpening m_opening;
    ModelMeshing m_meshing;
    RecentFiles m_recent_files;
    QString m_model_file;      // What the kernel holds and what can be meshed; may be empty
    double m_element_size = 0; // To be proposed for a mesh of it
    QAction* m_mesh;
    QAction* m_makes_sets;
};
