// veld-lin: a command line tool for people who maintain line type libraries.
//   veld-lin check FILE... [--strict]
//   veld-lin list FILE [--json] [--strict]
//   veld-lin convert IN OUT [--strict]
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <cstdio>
#include <iostream>

#include "linetypes/LtypeLoader.h"
#include "veld/Data.h"

namespace {

const char* kUsage =
    "usage: veld-lin COMMAND ...\n"
    "  check FILE... [--strict]       report every rejected definition\n"
    "  list FILE [--json] [--strict]  the definitions that load\n"
    "  convert IN OUT [--strict]      load IN and save it normalised to OUT\n"
    "A text style the drawing lacks is taken as STANDARD unless --strict is given.\n"
    "Exit status: 0 clean, 1 definitions rejected, 2 a file could not be opened or a\n"
    "wrong command line.\n";

const char* const kReasons[] = {"invalid alignment code",
                                "invalid characters sequence",
                                "A style is not defined",
                                "Must be defined at least two traits",
                                "Font type not supported",
                                " ",
                                " "};

/// Prints each rejected definition as the loading dialog words it.
class Reporter : public veld::CLtypeLoader::IErrorNotifier {
public:
    Reporter(veld::CData& data, bool strict) : data_(data), strict_(strict) {}
    /// Where the rejections go: the output of "check", standard error
    /// otherwise, so that "list" prints nothing but its listing.
    std::ostream* out = &std::cerr;
    void NotifyLoadError(const ulo::WString& file, unsigned line, const ulo::WString& name,
                         int code) override {
        ++rejected;
        const char* reason = (code >= 1 && code <= 7) ? kReasons[code - 1] : kReasons[1];
        *out << "Definition of " << name.ToQString().toStdString() << " is not correct on line "
             << line << " in file " << file.ToQString().toStdString() << ": " << reason << "\n";
    }
    veld::CStyle* GetUndefinedStyle(const ulo::WString&) override {
        return strict_ ? nullptr : veld::GetStyleStandard(&data_);
    }
    int rejected = 0;

private:
    veld::CData& data_;
    bool strict_;
};

int usage(const char* error = nullptr) {
    if (error)
        std::cerr << "veld-lin: " << error << "\n";
    std::cerr << kUsage;
    return 2;
}

QJsonObject describe(const veld::CLtype* l) {
    QJsonArray elements;
    for (unsigned i = 0; i < l->GetNoDashes(); ++i) {
        const veld::ILtypeComplexDash* d = l->GetDash(i);
        if (d->IsDouble()) {
            elements.append(d->GetDouble());
            continue;
        }
        const veld::TEXT_3D* t = d->GetText();
        elements.append(QJsonObject{
            {QStringLiteral("text"), t->GetContext().GetString().ToQString()},
            {QStringLiteral("style"),
             t->GetStyle() ? t->GetStyle()->GetName().ToQString() : QString()},
            {QStringLiteral("height"), t->GetContext().GetHeight()},
            {QStringLiteral("rotation"), t->GetContext().GetRotate() / 0.01745329251994},
            {QStringLiteral("x"), t->GetPoint().x},
            {QStringLiteral("y"), t->GetPoint().y}});
    }
    return QJsonObject{{QStringLiteral("name"), l->GetName().ToQString()},
                       {QStringLiteral("description"), l->GetDesc().ToQString()},
                       {QStringLiteral("elements"), elements}};
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    if (args.isEmpty())
        return usage("no command");
    const QString command = args.takeFirst();
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        std::cout << kUsage;
        return 0;
    }
    if (args.contains(QStringLiteral("--help"))) {
        std::cout << kUsage;
        return 0;
    }
    const bool strict = args.removeAll(QStringLiteral("--strict")) > 0;
    const bool json = args.removeAll(QStringLiteral("--json")) > 0;
    for (const QString& a : args)
        if (a.startsWith(QLatin1String("--")))
            return usage(qPrintable(QStringLiteral("unknown option %1").arg(a)));

    veld::CData data;
    auto* factory = const_cast<veld::CObjectFactory*>(data.GetObjectFactory());
    veld::CLtypeLoader loader(&data.GetStyleTable(), factory);
    Reporter reporter(data, strict);
    loader.SetNotifier(&reporter);
    const auto load = [&](const QString& file) {
        if (loader.Load(file.toStdWString().c_str()) < 0) {
            std::cerr << "veld-lin: cannot open " << file.toStdString() << "\n";
            return false;
        }
        return true;
    };

    if (command == QLatin1String("check")) {
        if (args.isEmpty() || json)
            return usage("check needs one or more files");
        reporter.out = &std::cout;
        bool unopened = false;
        for (const QString& file : args)
            unopened |= !load(file);
        return unopened ? 2 : (reporter.rejected ? 1 : 0);
    }
    if (command == QLatin1String("list")) {
        if (args.size() != 1)
            return usage("list needs one file");
        if (!load(args[0]))
            return 2;
        if (json) {
            QJsonArray all;
            for (unsigned i = 0; i < loader.GetNoLtypes(); ++i)
                all.append(describe(loader.GetLtypeNo(i)));
            std::cout << QJsonDocument(all).toJson(QJsonDocument::Indented).toStdString();
        } else {
            for (unsigned i = 0; i < loader.GetNoLtypes(); ++i) {
                const QJsonObject o = describe(loader.GetLtypeNo(i));
                std::cout << o.value(QStringLiteral("name")).toString().toStdString() << "\t"
                          << o.value(QStringLiteral("description")).toString().toStdString() << "\t"
                          << QJsonDocument(o.value(QStringLiteral("elements")).toArray())
                                 .toJson(QJsonDocument::Compact)
                                 .toStdString()
                          << "\n";
            }
        }
        return reporter.rejected ? 1 : 0;
    }
    if (command == QLatin1String("convert")) {
        if (args.size() != 2 || json)
            return usage("convert needs IN and OUT");
        if (!load(args[0]))
            return 2;
        loader.Save(args[1].toStdWString().c_str());
        return reporter.rejected ? 1 : 0;
    }
    return usage(qPrintable(QStringLiteral("unknown command %1").arg(command)));
}
