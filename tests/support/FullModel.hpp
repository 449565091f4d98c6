#pragma once

#include <support/RecordingMaterials.hpp>
#include <support/WatchedMirror.hpp>

/// A mirror connected to a kernel that has the component for materials, too.
struct FullMirror : WatchedMirror
{
    FullMirror();

    RecordingMaterials materials{log};
};

/// Scripts a small model with each kind of entity: geometry with a shared surface,
/// nested groups with members of all kinds, mesh controls, sets, boundary conditions
/// on them, materials and media, and a selection of everything that can be selected.
/// Each group is listed after the groups that it holds.
void script_full_model(FullMirror& mirror);

/// Changes the scripted model in each of its kinds: some entities go, some come, some
/// differ in name, flags or links.
void change_full_model(FullMirror& mirror);
