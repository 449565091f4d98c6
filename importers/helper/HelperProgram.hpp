#pragma once

#include <embedded/ModelData.hpp>
#include <functional>
#include <importers/helper/FrameChannel.hpp>

/// Does the work of a helper program, which ends with the model or the mesh, and leaves. What
/// the work throws becomes the failure that the parent process hears of; see ImportError.
///
/// The program ends with its parent, which holds the other end of the standard input. It
/// leaves without cleaning up: taking a large model apart takes longer than to read it, and may
/// crash after all is said.
[[noreturn]] void run_helper(const std::function<void(FrameChannel& channel)>& work);

/// Sends the result of an import. Throws ImportError if it is too large for a frame.
void send_model(const ModelData& model, FrameChannel& channel);
