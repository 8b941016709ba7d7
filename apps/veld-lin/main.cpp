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
#include <string>

#include "linetypes/LtypeLoader.h"
#include "veld/Data.h"
#include "veld/IFile.h"

namespace {

const char* kUsage =
    "usage: veld-lin COMMAND ...\n"
    "  check FILE... [--strict]       report every rejected definition\n"
    "  list FILE [--json] [--strict]  the definitions that load\n"
    "  convert IN OUT [--strict]      load IN and save it normalised to OUT\n"
    "A text style the drawing lacks is taken as STANDARD unless --strict is given.\n"
    "Exit status: 0 clean, 1 definitions rejected, 2 a file could not be opened or\n"
    "read or a wrong command line, 3 convert left definitions out of OUT.\n";

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

/// Why @p loader read nothing from its file, for a message.
std::string loadFailure(const veld::CLtypeLoader& loader) {
    using F = veld::CLtypeLoader::LoadFailure;
    switch (loader.GetLoadFailure()) {
        case F::NotRegularFile:
            return "not a regular file";
        case F::TooLarge:
            return "larger than " + std::to_string(veld::CLtypeLoader::kMaxFileSize) + " bytes";
        case F::ReadError:
            return "read error";
        case F::CannotOpen:
        case F::None:
            break;
    }
    return "cannot open";
}

std::string saveRefusal(veld::CLtypeLoader::SaveRefusal reason) {
    using R = veld::CLtypeLoader::SaveRefusal;
    switch (reason) {
        case R::LineTooLong:
            return "a line would be longer than " +
                   std::to_string(veld::CLtypeLoader::kMaxLineLength) + " characters";
        case R::NotReadable:
            return "it would not read back as the same line type";
        case R::NoEightBitForm:
            return "a character has no 8-bit form; the file ends before it";
        case R::NotWritten:
            break;
    }
    return "the file could not be written";
}

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
        bool read = false;
        try {
            read = loader.Load(file.toStdWString().c_str()) == 0;
        } catch (const veld::IFile::IFileException&) {
        }
        if (!read)
            std::cerr << "veld-lin: " << file.toStdString() << ": " << loadFailure(loader) << "\n";
        return read;
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
        for (unsigned i = 0; i < loader.GetNoUnsaved(); ++i) {
            const veld::CLtypeLoader::Unsaved u = loader.GetUnsavedNo(i);
            std::cerr << "veld-lin: " << args[1].toStdString() << ": "
                      << u.ltype->GetName().ToQString().toStdString()
                      << " not saved: " << saveRefusal(u.reason) << "\n";
        }
        return loader.GetNoUnsaved() ? 3 : (reporter.rejected ? 1 : 0);
    }
    return usage(qPrintable(QStringLiteral("unknown command %1").arg(command)));
}
