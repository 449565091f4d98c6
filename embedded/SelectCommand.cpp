#include <embedded/SelectCommand.hpp>

#include <charconv>
#include <string>

namespace {

struct SelectWord
{
    std::string text;
    EntityFamily family;
};

// Each with its blank.
std::vector<SelectWord> make_words()
{
    std::vector<SelectWord> words;
    const auto add_each = [&words](const EntityFamily& family) {
        for (EntityKind kind = family.first; kind <= family.last; kind = next(kind)) {
            words.push_back({entity_word(kind) + ' ', {kind, kind}});
        }
    };
    add_each({EntityKind::VERTEX, EntityKind::NODESET});
    add_each(fea_family);
    words.push_back({"cfd_bc ", cfd_family});
    words.push_back({"material ", material_family});
    return words;
}

bool skip(std::string_view& rest, std::string_view text)
{
    const bool found = rest.starts_with(text);
    if (found) {
        rest.remove_prefix(text.size());
    }
    return found;
}

const EntityFamily* skip_word(std::string_view& rest)
{
    static const std::vector<SelectWord> words = make_words();
    for (const SelectWord& word : words) {
        if (skip(rest, word.text)) {
            return &word.family;
        }
    }
    return nullptr;
}

std::optional<int> skip_id(std::string_view& rest)
{
    int id = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), id);
    if (error != std::errc()) {
        return std::nullopt;
    }
    std::string_view behind = rest.substr(static_cast<std::size_t>(end - rest.data()));
    if (!behind.empty() && !skip(behind, " ")) {
        return std::nullopt;
    }
    rest = behind;
    return id;
}

} // namespace

std::optional<SelectCommand> parse_select_command(std::string_view line)
{
    SelectCommand command;
    if (line == "select none") {
        command.action = SelectCommand::CLEAR;
        return command;
    }
    if (!skip(line, "select ")) {
        return std::nullopt;
    }
    while (const EntityFamily* const family = skip_word(line)) {
        std::optional<int> id = skip_id(line);
        if (!id) {
            return std::nullopt;
        }
        for (; id; id = skip_id(line)) {
            command.entities.emplace_back(*family, *id);
        }
    }
    if (skip(line, "remove")) {
        command.action = SelectCommand::DESELECT;
    }
    if (!line.empty() || command.entities.empty()) {
        return std::nullopt;
    }
    return command;
}
