#pragma once

#include <support/EventLog.hpp>
#include <support/RecordingKernel.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/kernel/TreeModel.hpp>

/// A mirror connected to a scripted kernel, with the calls of the one and the
/// signals of the other in one log.
struct WatchedMirror
{
    WatchedMirror();

    /// The mirror's side of the boundary, for the test to notify.
    KestoInterface::KIObserve& observer() { return *kernel.observer(); }

    /// Brings the mirror in line with the kernel and forgets what was logged on the way.
    void refresh();

    /// EventLog::take(), without what concerns other domains than geometry.
    QStringList take_geometry();

    EventLog log;
    RecordingKernel kernel{log};
    SignalRecorder recorder{log};
    TreeModel model;
};

/// What the reading of a record logs that has neither name nor flags nor children
/// and is in line with the kernel: the queries, and its visibility told once more.
QStringList plain_reading(const QString& word, int id);

/// Scripts a model with one of everything that geometry knows: a body of two
/// volumes with a shared surface and hidden, named and virtual entities, a sheet
/// body, and a free surface, curve and vertex.
void script_small_model(RecordingKernel& kernel);
