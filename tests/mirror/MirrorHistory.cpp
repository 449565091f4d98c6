#include "MirrorHistory.hpp"

#include <QRegularExpression>

QStringList without_history(QStringList text)
{
    static const QRegularExpression mark_alone("^([a-z])([a-z]+) ([0-9]+) ' \\(v\\)'");
    for (QString& line : text) {
        if (const auto match = mark_alone.match(line); match.hasMatch()) {
            line.replace(0, match.capturedLength(),
                QStringLiteral("%1%2 %3 '%4%2 %3 (v)'")
                    .arg(match.captured(1), match.captured(2), match.captured(3),
                        match.captured(1).toUpper()));
        }
        line.remove(" lite");
        const bool has_volumes = line.contains(" > volume");
        if (line.startsWith("body ") && !has_volumes) {
            line.remove(" sheet");
        }
    }
    return text;
}
