#include <browser/TextTreeWriter.hpp>

#include <algorithm>
#include <browser/MirrorTree.hpp>
#include <QTextStream>
#include <treemodel/treedata/TreeData.hpp>

namespace {

// Names come out of files: a control character must not reach the terminal.
QString printable(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control) {
            character = QChar::ReplacementCharacter;
        }
    }
    return text;
}

} // namespace

TextTreeWriter::TextTreeWriter(const MirrorTree& tree, QTextStream& output, int depth)
    : m_tree(tree)
    , m_output(output)
    , m_depth(depth)
{
}

void TextTreeWriter::write()
{
    for (TreeData* root : m_tree.children({})) {
        write_record(root, {});
    }
}

void TextTreeWriter::write_record(TreeData* record, const QString& indent)
{
    QStringList facts(QStringLiteral("%1 %2").arg(m_tree.kind(record)).arg(record->id()));
    facts += m_tree.flags(record);
    m_output << printable(record->name()) << "  [" << facts.join(QLatin1String(", ")) << ']';
    // A group may be its own member.
    if (std::find(m_path.begin(), m_path.end(), record) == m_path.end()) {
        write_children(record, indent);
    } else {
        m_output << "  …\n";
    }
}

void TextTreeWriter::write_children(TreeData* record, const QString& indent)
{
    m_path.push_back(record);
    const std::vector<TreeData*> children = m_tree.children(m_path);
    const bool is_last_level = int(m_path.size()) >= m_depth;
    if (is_last_level && !children.empty()) {
        m_output << "  … " << children.size() << " below";
    }
    m_output << '\n';
    if (!is_last_level) {
        for (TreeData* child : children) {
            const bool is_last = child == children.back();
            m_output << indent << (is_last ? "└─ " : "├─ ");
            write_record(child, indent + QString::fromUtf8(is_last ? "   " : "│  "));
        }
    }
    m_path.pop_back();
}
