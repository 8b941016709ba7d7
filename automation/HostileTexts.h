#pragma once
// The shared hostile-text corpus (tests/data/hostile-texts.json, read from
// the source tree): empty and blank texts, numbers that overflow or are no
// numbers, decimal commas, digits of other scripts, direction marks, emoji,
// combining marks, format directives, control characters, lone surrogates,
// paths and scripts. The tests and veld-sessions type these into fields.
#include <QStringList>

namespace automation {

/// Every text of the corpus, in file order; an empty list, with the reason
/// in @p error, when the file cannot be read.
QStringList HostileTexts(QString* error = nullptr);

/// A printable name for a corpus text in a failure message.
QString Printable(const QString& text);

}  // namespace automation
