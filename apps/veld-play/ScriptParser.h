#pragma once
// Parsing of veld-play scripts: one statement a line, words separated by
// blanks, '#' starts a comment, texts in double quotes with the escapes \"
// \\ \n \t \r, \uXXXX (one UTF-16 unit, so lone surrogates too) and
// \UXXXXXXXX (a code point).
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace veldplay {

struct Word {
    QString text;
    bool quoted = false;
};

struct Statement {
    int line = 0;
    std::vector<Word> words;
};

/// Splits one line into words. Returns an error message for an unterminated
/// text or a bad escape; an empty list for a blank or comment line.
std::optional<QString> SplitLine(const QString& line, std::vector<Word>& words);

/// Splits a whole script; errors are reported per line.
struct ParseError {
    int line;
    QString message;
};
std::vector<Statement> ParseScript(const QString& text, std::vector<ParseError>& errors);

/// @p text as a quoted text of the language that reads back exactly:
/// printable ASCII as it is, everything else escaped.
QString QuoteText(const QString& text);

/// NAME=VALUE argument split; false when the word has no '='.
bool SplitArgument(const QString& word, QString& name, QString& value);

}  // namespace veldplay
