#include <importers/FileContent.hpp>

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <string_view>

namespace {

// Enough for the first line of every format and the blanks before it.
constexpr std::size_t head_size = 1024;

// A signature section may follow the end mark of a STEP file.
constexpr std::size_t tail_size = 65536;

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";

// IGES lines have 80 columns; the letter of the section stands before the
// sequence number in the last seven.
constexpr std::size_t iges_letter_column = 72;
constexpr std::size_t iges_line_size = 80;

std::string_view trimmed_front(std::string_view text)
{
    if (text.starts_with(byte_order_mark)) {
        text.remove_prefix(byte_order_mark.size());
    }
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

bool is_iges_line(std::string_view line, char section)
{
    if (line.size() < iges_line_size || line[iges_letter_column] != section) {
        return false;
    }
    const auto number =
        line.substr(iges_letter_column + 1, iges_line_size - iges_letter_column - 1);
    return std::all_of(
        number.begin(), number.end(), [](char c) { return c == ' ' || (c >= '0' && c <= '9'); });
}

bool ends_with_iges_line(std::string_view text, char section)
{
    const auto end = text.find_last_not_of(blanks) + 1;
    return end >= iges_line_size &&
           is_iges_line(text.substr(end - iges_line_size, iges_line_size), section);
}

std::string_view last_line_of(std::string_view text)
{
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    return text.substr(text.find_last_of('\n') + 1);
}

// A star closes each shape; the next one begins with letters, but after the last one
// there is the reference to the outermost shape.
bool ends_with_brep_root(std::string_view text)
{
    const auto last_star = text.find_last_of('*');
    const auto rest =
        text.substr(last_star == std::string_view::npos ? text.size() : last_star + 1);
    return rest.find_first_of("+-") != std::string_view::npos &&
           rest.find_first_not_of(" \t\r\n+-0123456789") == std::string_view::npos;
}

struct Beginning
{
    std::string_view text;
    FileContent format;
};

constexpr std::array beginnings{
    Beginning{"ISO-10303-21;", FileContent::Step},
    Beginning{"DBRep_DrawableShape", FileContent::Brep},
    Beginning{"CASCADE Topology V", FileContent::Brep},
    Beginning{"$MeshFormat", FileContent::Msh},
    Beginning{"MeshVersionFormatted", FileContent::Medit},
    Beginning{"# vtk DataFile Version", FileContent::Vtk},
    Beginning{"BEGIN BULK", FileContent::Nastran},
    Beginning{"GRID", FileContent::Nastran},
};

// The first line that is no comment, with what follows.
std::string_view without_comments(std::string_view text, char mark)
{
    while (text.starts_with(mark)) {
        text.remove_prefix(std::min(text.find('\n'), text.size()));
        text = trimmed_front(text);
    }
    return text;
}

FileContent beginning_of(std::string_view text)
{
    const auto found = std::find_if(beginnings.begin(), beginnings.end(),
        [text](const Beginning& candidate) { return text.starts_with(candidate.text); });
    return found == beginnings.end() ? FileContent::Foreign : found->format;
}

FileContent format_of(std::string_view head)
{
    if (is_iges_line(head.substr(0, iges_line_size), 'S')) {
        return FileContent::Iges;
    }
    const auto text = trimmed_front(head);
    for (const auto candidate : {text, without_comments(text, '#'), without_comments(text, '$')}) {
        if (const auto format = beginning_of(candidate); format != FileContent::Foreign) {
            return format;
        }
    }
    return FileContent::Foreign;
}

bool is_text(std::string_view head)
{
    return head.find('\0') == std::string_view::npos;
}

bool has_name_of_script(const std::filesystem::path& file)
{
    return file.extension() == ".geo" || file.extension() == ".geo_unrolled";
}

std::string read_at(std::ifstream& stream, std::streamoff offset, std::size_t size)
{
    std::string bytes(size, '\0');
    stream.seekg(offset);
    stream.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
    return bytes;
}

std::string tail_of(const std::filesystem::path& file)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    const auto wanted = error ? 0 : std::min<std::uintmax_t>(size, tail_size);
    std::ifstream stream(file, std::ios::binary);
    return read_at(stream, static_cast<std::streamoff>(size - wanted), wanted);
}

} // namespace

FileContent look_at_file(const std::filesystem::path& file)
{
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    switch (status.type()) {
    case std::filesystem::file_type::not_found:
        return FileContent::Missing;
    case std::filesystem::file_type::directory:
        return FileContent::Directory;
    case std::filesystem::file_type::regular:
        break;
    case std::filesystem::file_type::none:
        return FileContent::Unreadable;
    default:
        return FileContent::NotRegular;
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return FileContent::Unreadable;
    }
    const auto head = read_at(stream, 0, head_size);
    if (head.empty()) {
        return FileContent::Empty;
    }
    const auto format = format_of(head);
    return format == FileContent::Foreign && is_text(head) && has_name_of_script(file)
               ? FileContent::GmshScript
               : format;
}

bool has_end_mark(const std::filesystem::path& file, FileContent format)
{
    const auto tail = tail_of(file);
    switch (format) {
    case FileContent::Step:
        return tail.find("END-ISO-10303-21") != std::string::npos;
    case FileContent::Iges:
        return ends_with_iges_line(tail, 'T');
    case FileContent::Brep:
        return ends_with_brep_root(tail);
    case FileContent::Msh:
        return last_line_of(tail).starts_with("$End");
    default:
        return true;
    }
}
