#include "ScriptParser.h"

namespace veldplay {

namespace {
int hexValue(QChar c) {
    const char16_t u = c.unicode();
    if (u >= '0' && u <= '9')
        return u - '0';
    if (u >= 'a' && u <= 'f')
        return u - 'a' + 10;
    if (u >= 'A' && u <= 'F')
        return u - 'A' + 10;
    return -1;
}

/// The value of @p digits hex digits at @p i (advanced past them), or -1.
long long hexAt(const QString& line, int& i, int digits) {
    if (i + digits > line.size())
        return -1;
    long long v = 0;
    for (int k = 0; k < digits; ++k) {
        const int d = hexValue(line[i + k]);
        if (d < 0)
            return -1;
        v = v * 16 + d;
    }
    i += digits;
    return v;
}
}  // namespace

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
                    if (e == QLatin1Char('n')) {
                        w.text += QLatin1Char('\n');
                    } else if (e == QLatin1Char('t')) {
                        w.text += QLatin1Char('\t');
                    } else if (e == QLatin1Char('r')) {
                        w.text += QLatin1Char('\r');
                    } else if (e == QLatin1Char('"') || e == QLatin1Char('\\')) {
                        w.text += e;
                    } else if (e == QLatin1Char('u')) {
                        const long long unit = hexAt(line, i, 4);
                        if (unit < 0)
                            return QStringLiteral("\\u needs four hex digits");
                        w.text += QChar(static_cast<char16_t>(unit));
                    } else if (e == QLatin1Char('U')) {
                        const long long cp = hexAt(line, i, 8);
                        if (cp < 0 || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
                            return QStringLiteral("\\U needs a code point in eight hex digits");
                        const char32_t c = static_cast<char32_t>(cp);
                        w.text += QString::fromUcs4(&c, 1);
                    } else {
                        return QStringLiteral("unknown escape \\%1").arg(e);
                    }
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

QString QuoteText(const QString& text) {
    QString out = QStringLiteral("\"");
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u == '"' || u == '\\')
            out += QLatin1Char('\\') + c;
        else if (u == '\n')
            out += QStringLiteral("\\n");
        else if (u == '\t')
            out += QStringLiteral("\\t");
        else if (u == '\r')
            out += QStringLiteral("\\r");
        else if (u >= 0x20 && u < 0x7F)
            out += c;
        else
            out += QStringLiteral("\\u%1").arg(u, 4, 16, QLatin1Char('0'));
    }
    return out + QLatin1Char('"');
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
