// The cost of opening a dialog: every factory operation whose dialog is built,
// in each layout, on the sample drawing, opened and closed as soon as it
// shows; against a bare QDialog holding the same controls as plain Qt widgets
// at the same places (a list as a QTableView over a plain model of the same
// headings and texts, with the same column widths), opened and closed the same
// way, in the same run.
//
//   bench_dialog_open                     Google Benchmark: time per open,
//                                         "ratio" = dialog / bare dialog
//   bench_dialog_open --opens N --operation OP --layout L [--bare]
//                                         N opens and nothing else, for
//                                         scripts/open-cost.sh (callgrind
//                                         counts opens 2 to N: furtherOpens)
#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractTableModel>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "DrawingHost.h"
#include "Player.h"
#include "factory/IVELDDlgFactory.h"
#include "ulo/PalmDevice.h"
#include "ulo/ctrl/Win.h"

namespace {

/// What a bare copy of a dialog needs: its size, font, title and controls.
struct Shape {
    QSize size;
    QFont font;
    QString title;
    struct Control {
        const char* kind;
        QRect geometry;
        QString text;
        bool enabled = true;
        bool checked = false;
        /// A list's headings, column widths and rows of shown texts: a plain
        /// Qt dialog that shows the same list fills a table with them.
        QStringList headings = {};
        std::vector<int> widths = {};
        std::vector<QStringList> rows = {};
    };
    std::vector<Control> controls;
};

const char* plainKind(const QWidget* w) {
    if (qobject_cast<const QLabel*>(w))
        return "QLabel";
    if (qobject_cast<const QGroupBox*>(w))
        return "QGroupBox";
    if (qobject_cast<const QPushButton*>(w))
        return "QPushButton";
    if (qobject_cast<const QCheckBox*>(w))
        return "QCheckBox";
    if (qobject_cast<const QRadioButton*>(w))
        return "QRadioButton";
    if (qobject_cast<const QLineEdit*>(w))
        return "QLineEdit";
    if (qobject_cast<const QComboBox*>(w))
        return "QComboBox";
    if (qobject_cast<const QAbstractItemView*>(w))
        return "QTableView";
    if (qobject_cast<const QTabBar*>(w))
        return "QTabBar";
    if (qobject_cast<const QScrollBar*>(w))
        return "QScrollBar";
    return "QFrame";
}

void CopyList(const QAbstractItemView& view, Shape::Control& into) {
    const QAbstractItemModel* model = view.model();
    if (!model)
        return;
    const auto* table = qobject_cast<const QTableView*>(&view);
    for (int c = 0; c < model->columnCount(); ++c) {
        into.headings << model->headerData(c, Qt::Horizontal).toString();
        into.widths.push_back(table ? table->columnWidth(c) : view.width());
    }
    for (int r = 0; r < model->rowCount(); ++r) {
        QStringList row;
        for (int c = 0; c < model->columnCount(); ++c)
            row << model->index(r, c).data().toString();
        into.rows.push_back(row);
    }
}

/// Closes every dialog as soon as it shows; copies the shape of the first.
class Closer : public QObject {
public:
    Shape* copyInto = nullptr;
    bool eventFilter(QObject* o, QEvent* e) override {
        auto* d = qobject_cast<QDialog*>(o);
        if (e->type() != QEvent::Show || !d || !d->isWindow())
            return false;
        if (copyInto) {
            copyInto->size = d->size();
            copyInto->font = d->font();
            copyInto->title = d->windowTitle();
            // Every control, the pages' too, at its place in the dialog; a
            // container's page (a child dialog) is a plain frame beneath them.
            const QList<QWidget*> all = d->findChildren<QWidget*>();
            for (QWidget* w : all)
                if (qobject_cast<QDialog*>(w) && !w->isWindow() && w->isVisible())
                    copyInto->controls.push_back({"QFrame", w->geometry(), QString()});
            for (QWidget* w : all)
                if (w->property(ulo::prop::kCtrlId).isValid()) {
                    copyInto->controls.push_back(
                        {plainKind(w),
                         {w->parentWidget()->mapTo(d, w->pos()), w->size()},
                         w->property("text").toString(),
                         w->isEnabled(),
                         w->property("checked").toBool()});
                    if (auto* view = qobject_cast<QAbstractItemView*>(w))
                        CopyList(*view, copyInto->controls.back());
                }
            copyInto = nullptr;
        }
        QMetaObject::invokeMethod(d, &QDialog::reject, Qt::QueuedConnection);
        return false;
    }
};

/// A list's texts as the plainest Qt model shows them.
class TextTable : public QAbstractTableModel {
public:
    TextTable(const Shape::Control& c, QObject* parent) : QAbstractTableModel(parent), c_(c) {}
    int rowCount(const QModelIndex& = {}) const override { return int(c_.rows.size()); }
    int columnCount(const QModelIndex& = {}) const override { return int(c_.headings.size()); }
    QVariant data(const QModelIndex& i, int role) const override {
        if (role != Qt::DisplayRole)
            return {};
        const QStringList& row = c_.rows[std::size_t(i.row())];
        return i.column() < row.size() ? row[i.column()] : QString();
    }
    QVariant headerData(int section, Qt::Orientation o, int role) const override {
        return o == Qt::Horizontal && role == Qt::DisplayRole ? c_.headings.value(section)
                                                              : QVariant();
    }

private:
    const Shape::Control& c_;
};

/// The same controls as plain Qt widgets at the same places.
class BareDialog : public QDialog {
    QTableView* NewTable(const Shape::Control& c) {
        auto* table = new QTableView(this);
        table->setModel(new TextTable(c, table));
        for (int col = 0; col < int(c.widths.size()); ++col)
            table->setColumnWidth(col, c.widths[std::size_t(col)]);
        return table;
    }

public:
    explicit BareDialog(const Shape& shape) {
        setFont(shape.font);
        setFixedSize(shape.size);
        setWindowTitle(shape.title);
        for (const Shape::Control& c : shape.controls) {
            QWidget* w = nullptr;
            const std::string kind = c.kind;
            if (kind == "QLabel")
                w = new QLabel(c.text, this);
            else if (kind == "QGroupBox")
                w = new QGroupBox(c.text, this);
            else if (kind == "QPushButton")
                w = new QPushButton(c.text, this);
            else if (kind == "QCheckBox")
                w = new QCheckBox(c.text, this);
            else if (kind == "QRadioButton")
                w = new QRadioButton(c.text, this);
            else if (kind == "QLineEdit")
                w = new QLineEdit(c.text, this);
            else if (kind == "QComboBox")
                w = new QComboBox(this);
            else if (kind == "QTableView")
                w = NewTable(c);
            else if (kind == "QTabBar")
                w = new QTabBar(this);
            else if (kind == "QScrollBar")
                w = new QScrollBar(Qt::Horizontal, this);
            else
                w = new QFrame(this);
            w->setGeometry(c.geometry);
            // In the state the dialog shows it: a plain Qt dialog pays for
            // disabling and checking its controls too.
            if (!c.enabled)
                w->setEnabled(false);
            if (auto* button = qobject_cast<QAbstractButton*>(w); button && c.checked) {
                button->setCheckable(true);
                button->setChecked(true);
            }
        }
    }
};

struct Bench {
    IVELDDlgFactory* factory = CreateFactory();
    veldplay::DrawingHost host;
    Closer closer;
    bool closing = false;
    Bench() {
        QString error;
        host.Open(QString(), true, QString(), error);
    }
    /// Opens the operation's dialog once (and copies its shape into @p shape).
    void Open(const QString& op, Shape* shape = nullptr) {
        if (!closing) {  // not while the built operations are found
            qApp->installEventFilter(&closer);
            closing = true;
        }
        closer.copyInto = shape;
        catalogue::Call call = veldplay::NewCall(factory, host);
        catalogue::Find(op)->Run(call);
    }
    static void OpenBare(const Shape& shape) {
        BareDialog d(shape);
        d.exec();
    }
};

Bench& bench() {
    static Bench b;
    return b;
}

void openDialog(benchmark::State& state, const QString& op, int layout, const Shape& shape) {
    CPalmDevice::SetLayoutOverride(layout);
    Bench& b = bench();
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (auto _ : state)
        b.Open(op);
    const double dialog =
        std::chrono::duration<double>(Clock::now() - start).count() / double(state.iterations());
    CPalmDevice::SetLayoutOverride(-1);
    // The bare dialog, timed in the same run, gives the ratio.
    const int n = std::max<int>(5, static_cast<int>(state.iterations()));
    const auto bareStart = Clock::now();
    for (int i = 0; i < n; ++i)
        Bench::OpenBare(shape);
    const double bare = std::chrono::duration<double>(Clock::now() - bareStart).count() / n;
    state.counters["dialog_ms"] = dialog * 1e3;
    state.counters["bare_ms"] = bare * 1e3;
    state.counters["ratio"] = dialog / bare;
    state.counters["controls"] = static_cast<double>(shape.controls.size());
}

/// The opens after the first, all that scripts/open-cost.sh counts (callgrind
/// --toggle-collect): the start of the process and the first open load fonts
/// and fill caches, by amounts that vary from run to run.
[[gnu::noinline]] void furtherOpens(Bench& b, const QString& op, const Shape& shape, bool bare,
                                    int count) {
    for (int i = 0; i < count; ++i) {
        if (bare)
            Bench::OpenBare(shape);
        else
            b.Open(op);
    }
}

int opensOnly(const QStringList& args) {
    int opens = 1, layout = 0;
    QString op;
    bool bare = false;
    for (int i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("--opens") && i + 1 < args.size())
            opens = args[++i].toInt();
        else if (args[i] == QLatin1String("--operation") && i + 1 < args.size())
            op = args[++i];
        else if (args[i] == QLatin1String("--layout") && i + 1 < args.size())
            layout = args[++i].toInt();
        else if (args[i] == QLatin1String("--bare"))
            bare = true;
    }
    if (!catalogue::Find(op))
        return std::fprintf(stderr, "bench_dialog_open: no operation %s\n", qPrintable(op)), 2;
    CPalmDevice::SetLayoutOverride(layout);
    Bench& b = bench();
    Shape shape;
    b.Open(op, &shape);  // the first open: the shape a bare dialog copies
    if (shape.size.isEmpty())
        return std::fprintf(stderr, "bench_dialog_open: %s shows no dialog\n", qPrintable(op)), 2;
    furtherOpens(b, op, shape, bare, opens - 1);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.contains(QStringLiteral("--opens")))
        return opensOnly(args);
    static std::map<QString, Shape> shapes;
    for (const QString& op : veldplay::BuiltOperations(bench().factory, bench().host)) {
        for (int layout = 0; layout < 4; ++layout) {
            const QString name = QStringLiteral("%1/layout%2").arg(op).arg(layout);
            CPalmDevice::SetLayoutOverride(layout);
            bench().Open(op, &shapes[name]);
            CPalmDevice::SetLayoutOverride(-1);
            const Shape* shape = &shapes[name];
            benchmark::RegisterBenchmark(name.toStdString().c_str(), [op, layout,
                                                                      shape](benchmark::State& s) {
                openDialog(s, op, layout, *shape);
            })->Unit(benchmark::kMillisecond);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
