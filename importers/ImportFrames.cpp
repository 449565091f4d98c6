#include <importers/ImportFrames.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

// Header: mark, version, kind, two zero bytes, payload size, low byte first.
constexpr std::string_view frame_mark = "TMIF";
constexpr char frame_version = 1;
constexpr std::size_t kind_position = 5;
constexpr std::size_t size_position = 8;

// Indexed by FrameKind.
constexpr std::array<std::size_t, 8> payload_limits{
    0,
    3,
    std::size_t{1} << 16,
    std::size_t{1} << 16,
    std::size_t{1} << 30,
    std::size_t{1} << 30,
    std::size_t{1} << 30,
    32,
};

constexpr int stage_count = static_cast<int>(ImportStage::RaiseOrder) + 1;
constexpr std::size_t progress_size = 3;
constexpr unsigned progress_steps = 10000;
constexpr unsigned no_measure = 0xffff;

unsigned byte_at(std::string_view bytes, std::size_t position)
{
    return static_cast<unsigned char>(bytes[position]);
}

std::size_t payload_size_in(std::string_view header)
{
    std::size_t size = 0;
    for (std::size_t i = frame_header_size; i-- > size_position;) {
        size = size << 8 | byte_at(header, i);
    }
    return size;
}

} // namespace

std::array<char, frame_header_size> frame_header(FrameKind kind, std::size_t payload_size)
{
    std::array<char, frame_header_size> header{};
    std::copy(frame_mark.begin(), frame_mark.end(), header.begin());
    header[frame_mark.size()] = frame_version;
    header[kind_position] = static_cast<char>(kind);
    for (std::size_t i = size_position; i < frame_header_size; ++i) {
        header[i] = static_cast<char>(payload_size & 0xff);
        payload_size >>= 8;
    }
    return header;
}

std::size_t largest_payload(FrameKind kind)
{
    const auto index = static_cast<std::size_t>(kind);
    return index < payload_limits.size() ? payload_limits[index] : 0;
}

std::string pack_progress(ImportProgress progress)
{
    const unsigned steps =
        progress.fraction < 0
            ? no_measure
            : static_cast<unsigned>(std::lround(std::min(progress.fraction, 1.0) * progress_steps));
    return {static_cast<char>(progress.stage), static_cast<char>(steps & 0xff),
        static_cast<char>(steps >> 8)};
}

std::optional<ImportProgress> unpack_progress(std::string_view payload)
{
    if (payload.size() != progress_size || byte_at(payload, 0) >= stage_count) {
        return {};
    }
    const unsigned steps = byte_at(payload, 1) | byte_at(payload, 2) << 8;
    if (steps > progress_steps && steps != no_measure) {
        return {};
    }
    return ImportProgress{static_cast<ImportStage>(payload[0]),
        steps == no_measure ? -1 : static_cast<double>(steps) / progress_steps};
}

std::string pack_extent(double extent)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), extent).ptr;
    return {text.begin(), end};
}

std::optional<double> unpack_extent(std::string_view payload)
{
    double extent = 0;
    const char* const end = payload.data() + payload.size();
    const auto [stop, error] = std::from_chars(payload.data(), end, extent);
    const bool is_extent =
        error == std::errc() && stop == end && std::isfinite(extent) && extent >= 0;
    return is_extent ? std::optional(extent) : std::nullopt;
}

void FrameReader::append(std::string_view bytes)
{
    m_bytes.erase(0, m_position);
    m_position = 0;
    m_bytes += bytes;
}

std::optional<Frame> FrameReader::next()
{
    const auto rest = std::string_view(m_bytes).substr(m_position);
    if (m_is_damaged || rest.size() < frame_header_size) {
        return {};
    }
    const auto kind = static_cast<FrameKind>(rest[kind_position]);
    const auto size = payload_size_in(rest);
    const auto expected = frame_header(kind, size);
    m_is_damaged = size > largest_payload(kind) || largest_payload(kind) == 0 ||
                   !rest.starts_with(std::string_view(expected.data(), expected.size()));
    if (m_is_damaged || rest.size() - frame_header_size < size) {
        return {};
    }
    m_position += frame_header_size + size;
    return Frame{kind, std::string(rest.substr(frame_header_size, size))};
}
