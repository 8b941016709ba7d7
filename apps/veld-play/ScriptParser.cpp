#include "ScriptParser.h"

namespace veldplay {

std::optional<QString> SplitLine(const QString& line, std::vector<Word>& words) {
    words.clear();
    int i = 0;
    const int n = line.size();
    while (i < n) {
        const QChar c = line[i];
        if (c.isSpace()) {
            ++i;
            continue;
        }
        if (c == QLatin1Char('#'))
            break;
        Word w;
        // A word may mix plain characters and quoted parts: title="Height".
        while (i < n && !line[i].isSpace()) {
            if (line[i] == QLatin1Char('"')) {
                w.quoted = true;
                ++i;
                bool closed = false;
                while (i < n) {
                    const QChar q = line[i++];
                    if (q == QLatin1Char('"')) {
                        closed = true;
                        break;
                    }
                    if (q != QLatin1Char('\\')) {
                        w.text += q;
                        continue;
                    }
                    if (i >= n)
                        return QStringLiteral("unterminated escape");
                    const QChar e = line[i++];
                    if (e == QLatin1Char('n'))
                        w.text += QLatin1Char('\n');
                    else if (e == QLatin1Char('t'))
                        w.text += QLatin1Char('\t');
                    else if (e == QLatin1Char('"') || e == QLatin1Char('\\'))
                        w.text += e;
                    else
                        return QStringLiteral("unknown escape \\%1").arg(e);
                }
                if (!closed)
                    return QStringLiteral("unterminated text");
            } else if (line[i] == QLatin1Char('#') && w.text.isEmpty() && !w.quoted) {
                break;
            } else {
                w.text += line[i++];
            }
        }
        if (!w.text.isEmpty() || w.quoted)
            words.push_back(w);
        if (i < n && line[i] == QLatin1Char('#'))
            break;
    }
    return std::nullopt;
}

std::vector<Statement> ParseScript(const QString& text, std::vector<ParseError>& errors) {
    std::vector<Statement> out;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString l = lines[i];
        if (l.endsWith(QLatin1Char('\r')))
            l.chop(1);
        Statement s;
        s.line = i + 1;
        if (auto err = SplitLine(l, s.words)) {
            errors.push_back({s.line, *err});
            continue;
        }
        if (!s.words.empty())
            out.push_back(std::move(s));
    }
    return out;
}

bool SplitArgument(const QString& word, QString& name, QString& value) {
    const int eq = word.indexOf(QLatin1Char('='));
    if (eq <= 0)
        return false;
    name = word.left(eq);
    value = word.mid(eq + 1);
    return true;
}

}  // namespace veldplay
