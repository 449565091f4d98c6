#include <browser/TextTreeWriter.hpp>

#include <browser/GeometryTree.hpp>
#include <QTextStream>

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

QString label(TreeGeometryData* record)
{
    return QStringLiteral("%1 %2")
        .arg(QString::fromStdString(TreeGeometryData::type_to_string(record->geometry_type())))
        .arg(record->id());
}

} // namespace

TextTreeWriter::TextTreeWriter(const GeometryTree& tree, QTextStream& output, int depth)
    : m_tree(tree)
    , m_output(output)
    , m_depth(depth)
{
}

void TextTreeWriter::write()
{
    for (TreeGeometryData* root : m_tree.roots()) {
        write_record(root, 1, {});
    }
}

void TextTreeWriter::write_record(TreeGeometryData* record, int level, const QString& indent)
{
    const QStringList facts = QStringList(label(record)) + m_tree.flags(record);
    m_output << printable(record->name()) << "  [" << facts.join(QLatin1String(", ")) << ']';
    write_children(record, level, indent);
}

void TextTreeWriter::write_children(TreeGeometryData* record, int level, const QString& indent)
{
    const std::vector<TreeGeometryData*> children = m_tree.children(record);
    if (level >= m_depth && !children.empty()) {
        m_output << "  … "
                 << GeometryTree::count_text(
                        children.front()->geometry_type(), int(children.size()));
    }
    m_output << '\n';
    if (level >= m_depth) {
        return;
    }
    for (TreeGeometryData* child : children) {
        const bool is_last = child == children.back();
        m_output << indent << (is_last ? "└─ " : "├─ ");
        write_record(child, level + 1, indent + QString::fromUtf8(is_last ? "   " : "│  "));
    }
}
