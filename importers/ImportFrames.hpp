#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The stages of an import in their order, and those of a meshing after its Walk.
enum class ImportStage : std::uint8_t {
    Read,
    Check,
    Transfer,
    Walk,
    Pack,
    MeshCurves,
    MeshSurfaces,
    MeshVolumes,
    RaiseOrder,
};

/// How far the helper program is: `fraction` of the stage from 0 to 1, or below 0
/// while the stage has no measure.
struct ImportProgress
{
    ImportStage stage = ImportStage::Read;
    double fraction = -1;
};

/// What a helper program sends: any number of progress reports, warnings and unfinished
/// meshes, the extent of a model, then one failure, one model or one mesh.
enum class FrameKind : std::uint8_t {
    Progress = 1,
    Warning,
    Failure,
    Model,
    UnfinishedMesh,
    Mesh,
    Extent,
};

/// One message of a helper program. Warnings and failures carry UTF-8 text, the
/// other kinds what pack_progress(), pack_extent(), pack_model() and pack_mesh() made.
struct Frame
{
    FrameKind kind = FrameKind::Progress;
    std::string payload;
};

constexpr std::size_t frame_header_size = 12;

/// The bytes that go before a payload of `payload_size` bytes.
std::array<char, frame_header_size> frame_header(FrameKind kind, std::size_t payload_size);

/// The longest payload that a frame of the kind may have; 0 for an unknown kind.
std::size_t largest_payload(FrameKind kind);

std::string pack_progress(ImportProgress progress);

/// Empty for a payload that pack_progress() cannot have made.
std::optional<ImportProgress> unpack_progress(std::string_view payload);

std::string pack_extent(double extent);

/// Empty for a payload that is no number from 0 up.
std::optional<double> unpack_extent(std::string_view payload);

/// Cuts a stream of bytes into frames, in pieces as they arrive. Holds no more
/// memory than has arrived.
class FrameReader
{
public:
    void append(std::string_view bytes);

    /// The next whole frame; empty while it has not arrived or after damage.
    std::optional<Frame> next();

    /// Whether the stream holds something that is no frame. Nothing follows then.
    bool is_damaged() const { return m_is_damaged; }

private:
    std::string m_bytes;
    std::size_t m_position = 0;
    bool m_is_damaged = false;
};
