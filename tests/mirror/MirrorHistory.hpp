#pragma once

#include <QStringList>

/// mirror_text() without what a mirror that has followed the kernel knows otherwise than
/// one that was just refreshed:
/// - the lite status is read upon notifications only, so a refreshed mirror has none;
/// - a body without volumes keeps the sheet flag that it had with its last one;
/// - a virtual entity without a name shows its default name until it is read once more
///   as a virtual one, which makes the mark alone its name.
QStringList without_history(QStringList text);
