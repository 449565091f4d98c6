#pragma once

#include <QStringList>

class TreeModel;

/// What there is to say of a record beside its links: `surface 5 'Lid' virtual hidden`.
QString record_fact(const QString& record, const QString& name, const QStringList& flags);

/// `volume 2 > surface 5`.
QString link_fact(const QString& from, const QString& to);

/// All records and links of a mirror, one fact a line, sorted.
QStringList mirror_facts(TreeModel& mirror);
