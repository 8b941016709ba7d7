#include "ScriptedUser.h"

#include <algorithm>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "ulo/HelpTopic.h"
#include "ulo/ctrl/Controls.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/MessageBox.h"

namespace automation {

namespace {
constexpr int kTickMs = 5;

QString windowTitle(QWidget* w) {
    return w ? w->windowTitle() : QString();
}

QString kindName(WindowKind k) {
    switch (k) {
        case WindowKind::Dialog:
            return QStringLiteral("dialog");
        case WindowKind::MessageBox:
            return QStringLiteral("message box");
        case WindowKind::FileDialog:
            return QStringLiteral("file dialog");
        default:
            return QStringLiteral("window");
    }
}

WindowKind kindOf(QWidget* w) {
    if (qobject_cast<QMessageBox*>(w))
        return WindowKind::MessageBox;
    if (qobject_cast<QFileDialog*>(w))
        return WindowKind::FileDialog;
    return WindowKind::Dialog;
}

QPoint cellCenter(QAbstractItemView* view, int row, int column, QString& error) {
    auto* model = view->model();
    if (!model || row < 0 || row >= model->rowCount() || column < 0 ||
        column >= model->columnCount()) {
        error = QStringLiteral("no cell %1,%2").arg(row).arg(column);
        return {};
    }
    const QModelIndex index = model->index(row, column);
    view->scrollTo(index);
    return view->visualRect(index).center();
}

/// Where a click toggles a check box or radio button: on its indicator.
QPoint buttonHitPoint(QAbstractButton* b) {
    if (qobject_cast<QPushButton*>(b))
        return b->rect().center();
    return QPoint(std::min(8, b->width() / 2), b->height() / 2);
}
}  // namespace

ScriptedUser::ScriptedUser() {
    // A chain of single-shot timers, not one repeating timer: a timer does not
    // fire again while its own handler runs, and a step that opens a nested
    // modal window runs inside the handler.
    QTimer::singleShot(kTickMs, this, &ScriptedUser::Tick);
    beepListener_ = ulo::AddBeepListener([this](unsigned) {
        ++beeps_;
        Emit(QJsonObject{{QStringLiteral("event"), QStringLiteral("beep")}});
    });
}

ScriptedUser::~ScriptedUser() {
    ulo::RemoveBeepListener(beepListener_);
}

ScriptedUser& ScriptedUser::Add(QString what, WindowKind kind,
                                std::function<QString(QWidget*)> run) {
    steps_.push_back(Step{std::move(what), kind, line_, std::move(run)});
    return *this;
}

ScriptedUser& ScriptedUser::OnControl(QString what, unsigned id,
                                      std::function<QString(QWidget*)> run) {
    return Add(std::move(what), WindowKind::Dialog, [id, run](QWidget* window) -> QString {
        QWidget* control = ulo::FindControl(window, id);
        if (!control)
            return QStringLiteral("no control %1 in \"%2\"").arg(id).arg(windowTitle(window));
        if (!control->isVisible())
            return QStringLiteral("control %1 is not visible").arg(id);
        return run(control);
    });
}

ScriptedUser& ScriptedUser::Click(unsigned id) {
    return OnControl(QStringLiteral("click %1").arg(id), id, [](QWidget* c) -> QString {
        if (!c->isEnabled())
            return QStringLiteral("control is disabled");
        if (auto* b = qobject_cast<QAbstractButton*>(c))
            QTest::mouseClick(b, Qt::LeftButton, {}, buttonHitPoint(b));
        else
            QTest::mouseClick(c, Qt::LeftButton, {}, c->rect().center());
        return {};
    });
}

namespace {
bool isKeyboardChar(QChar c) {
    return c.unicode() >= 0x20 && c.unicode() < 0x7F;
}

/// Types @p text as a user does: printable ASCII key by key, everything else
/// (letters of other scripts, accents, emoji, marks, control characters) as
/// an input method's commit, the way such text reaches a field on a device.
/// A long run of keys arrives in one commit too, as a paste would: typing it
/// key by key costs time quadratic in its length.
void typeText(QWidget* target, const QString& text) {
    constexpr qsizetype kLongRun = 64;
    qsizetype i = 0;
    while (i < text.size()) {
        const bool keys = isKeyboardChar(text[i]);
        qsizetype j = i;
        while (j < text.size() && isKeyboardChar(text[j]) == keys)
            ++j;
        if (keys && j - i <= kLongRun) {
            for (; i < j; ++i)
                QTest::keyClick(target, text[i].toLatin1());
            continue;
        }
        QInputMethodEvent commit;
        commit.setCommitString(text.mid(i, j - i));
        QApplication::sendEvent(target, &commit);
        i = j;
    }
}

/// Focuses an edit with a tap, then moves to its end or selects all of it.
QString editStep(QWidget* c, bool replace, const QString& text) {
    auto* e = qobject_cast<QLineEdit*>(c);
    if (!e)
        return QStringLiteral("control is not an edit");
    if (!e->isEnabled())
        return QStringLiteral("edit is disabled");
    QTest::mouseClick(e, Qt::LeftButton, {}, e->rect().center());
    if (replace)
        QTest::keyClick(e, Qt::Key_A, Qt::ControlModifier);
    else
        QTest::keyClick(e, Qt::Key_End);
    if (replace && text.isEmpty())
        QTest::keyClick(e, Qt::Key_Delete);
    else
        typeText(e, text);
    return {};
}
}  // namespace

ScriptedUser& ScriptedUser::Type(unsigned id, const QString& text) {
    return OnControl(QStringLiteral("type %1").arg(id), id,
                     [text](QWidget* c) { return editStep(c, false, text); });
}

ScriptedUser& ScriptedUser::SetText(unsigned id, const QString& text) {
    return OnControl(QStringLiteral("set %1").arg(id), id,
                     [text](QWidget* c) { return editStep(c, true, text); });
}

ScriptedUser& ScriptedUser::Clear(unsigned id) {
    return SetText(id, QString());
}

ScriptedUser& ScriptedUser::Pick(unsigned id, int index) {
    return OnControl(
        QStringLiteral("pick %1 %2").arg(id).arg(index), id, [index](QWidget* c) -> QString {
            auto* combo = qobject_cast<QComboBox*>(c);
            if (!combo)
                return QStringLiteral("control is not a combo box");
            if (!combo->isEnabled())
                return QStringLiteral("combo box is disabled");
            if (index < 0 || index >= combo->count())
                return QStringLiteral("no item %1 (of %2)").arg(index).arg(combo->count());
            combo->showPopup();
            QAbstractItemView* view = combo->view();
            const QModelIndex mi = combo->model()->index(index, 0);
            view->scrollTo(mi);
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(mi).center());
            if (combo->currentIndex() != index)
                return QStringLiteral("item %1 could not be picked").arg(index);
            return {};
        });
}

ScriptedUser& ScriptedUser::Pick(unsigned id, const QString& itemText) {
    return OnControl(QStringLiteral("pick %1 \"%2\"").arg(id).arg(itemText), id,
                     [this, id, itemText](QWidget* c) -> QString {
                         auto* combo = qobject_cast<QComboBox*>(c);
                         if (!combo)
                             return QStringLiteral("control is not a combo box");
                         const int index = combo->findText(itemText);
                         if (index < 0)
                             return QStringLiteral("no item \"%1\"").arg(itemText);
                         // Run the by-index step at once, on the same window.
                         ScriptedUser inner;
                         inner.stopped_ = true;
                         inner.Pick(id, index);
                         return inner.steps_.front().run(c->window());
                     });
}

ScriptedUser& ScriptedUser::TapCell(QString what, unsigned id, int row, int column, bool twice) {
    return OnControl(std::move(what), id, [row, column, twice](QWidget* c) -> QString {
        auto* view = qobject_cast<QAbstractItemView*>(c);
        if (!view)
            return QStringLiteral("control is not a list");
        QString error;
        const QPoint p = cellCenter(view, row, column, error);
        if (!error.isEmpty())
            return error;
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, p);
        if (twice)
            QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, p);
        return {};
    });
}

ScriptedUser& ScriptedUser::Tap(unsigned id, int row, int column) {
    return TapCell(QStringLiteral("tap %1 %2 %3").arg(id).arg(row).arg(column), id, row, column,
                   false);
}

ScriptedUser& ScriptedUser::DoubleTap(unsigned id, int row, int column) {
    return TapCell(QStringLiteral("dtap %1 %2 %3").arg(id).arg(row).arg(column), id, row, column,
                   true);
}

ScriptedUser& ScriptedUser::CheckRow(unsigned id, int row) {
    // The check box column of the toolkit's grid toggles on a tap anywhere in
    // its cell.
    return Tap(id, row, 0);
}

ScriptedUser& ScriptedUser::Header(unsigned id, int column) {
    return OnControl(
        QStringLiteral("header %1 %2").arg(id).arg(column), id, [column](QWidget* c) -> QString {
            auto* view = qobject_cast<QTableView*>(c);
            if (!view || !view->model())
                return QStringLiteral("control is not a list with headers");
            QHeaderView* header = view->horizontalHeader();
            if (column < 0 || column >= view->model()->columnCount() || header->isHidden())
                return QStringLiteral("no column header %1").arg(column);
            view->horizontalScrollBar()->setValue(
                header->sectionPosition(column) -
                std::max(0, view->viewport()->width() - header->sectionSize(column)) / 2);
            const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                              QPoint(x, header->height() / 2));
            return {};
        });
}

ScriptedUser& ScriptedUser::Key(unsigned id, int qtKey) {
    return OnControl(QStringLiteral("key %1").arg(id), id, [qtKey](QWidget* c) -> QString {
        c->setFocus(Qt::OtherFocusReason);
        QWidget* target = c;
        if (auto* view = qobject_cast<QAbstractItemView*>(c))
            target = view;
        QTest::keyClick(target, static_cast<Qt::Key>(qtKey));
        return {};
    });
}

ScriptedUser& ScriptedUser::SwitchTab(unsigned id, int index) {
    return OnControl(QStringLiteral("tab %1 %2").arg(id).arg(index), id,
                     [index](QWidget* c) -> QString {
                         auto* bar = qobject_cast<QTabBar*>(c);
                         if (!bar)
                             return QStringLiteral("control is not a tab control");
                         if (index < 0 || index >= bar->count())
                             return QStringLiteral("no tab %1").arg(index);
                         QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
                         return {};
                     });
}

ScriptedUser& ScriptedUser::Press(unsigned id, double fx, double fy) {
    return OnControl(QStringLiteral("press %1").arg(id), id, [fx, fy](QWidget* c) -> QString {
        const QPoint local(int(fx * c->width()), int(fy * c->height()));
        // The press goes to whatever widget is at that point, as a finger's would.
        QWidget* window = c->window();
        const QPoint inWindow = c->mapTo(window, local);
        QWidget* target = window->childAt(inWindow);
        if (!target)
            target = window;
        QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(window, inWindow));
        return {};
    });
}

ScriptedUser& ScriptedUser::Answer(int button) {
    return Add(QStringLiteral("answer %1").arg(button), WindowKind::MessageBox,
               [this, button](QWidget* w) -> QString {
                   auto* box = qobject_cast<QMessageBox*>(w);
                   QMessageBox::StandardButton sb = QMessageBox::NoButton;
                   switch (button) {
                       case ulo::IDOK:
                           sb = QMessageBox::Ok;
                           break;
                       case ulo::IDCANCEL:
                           sb = QMessageBox::Cancel;
                           break;
                       case ulo::IDYES:
                           sb = QMessageBox::Yes;
                           break;
                       case ulo::IDNO:
                           sb = QMessageBox::No;
                           break;
                       default:
                           break;
                   }
                   QAbstractButton* b = box->button(sb);
                   if (!b)
                       return QStringLiteral("the message box has no button %1").arg(button);
                   MessageRecord r{box->property(ulo::prop::kCaption).toString(),
                                   box->property(ulo::prop::kText).toString(),
                                   box->property(ulo::prop::kFlags).toUInt(), button};
                   messages_.push_back(r);
                   Emit(QJsonObject{{QStringLiteral("event"), QStringLiteral("message")},
                                    {QStringLiteral("caption"), r.caption},
                                    {QStringLiteral("text"), r.text},
                                    {QStringLiteral("flags"), int(r.flags)},
                                    {QStringLiteral("answer"), button}});
                   QTest::mouseClick(b, Qt::LeftButton);
                   return {};
               });
}

ScriptedUser& ScriptedUser::AnswerFile(const QString& path) {
    return Add(QStringLiteral("file"), WindowKind::FileDialog, [this, path](QWidget* w) -> QString {
        auto* dialog = qobject_cast<QFileDialog*>(w);
        Emit(QJsonObject{
            {QStringLiteral("event"), QStringLiteral("file-dialog")},
            {QStringLiteral("title"), dialog->windowTitle()},
            {QStringLiteral("folder"), dialog->directory().absolutePath()},
            {QStringLiteral("filters"), dialog->nameFilters().join(QStringLiteral(";;"))},
            {QStringLiteral("answer"), path}});
        // The dialog leaves its file name field alone while the field has
        // the focus (so as not to overwrite typing): take it away first.
        if (QWidget* focus = dialog->focusWidget())
            focus->clearFocus();
        dialog->selectFile(path);
        QMetaObject::invokeMethod(dialog, "accept");
        return {};
    });
}

ScriptedUser& ScriptedUser::CancelFile() {
    return Add(QStringLiteral("file cancel"), WindowKind::FileDialog,
               [this](QWidget* w) -> QString {
                   auto* dialog = qobject_cast<QFileDialog*>(w);
                   Emit(QJsonObject{{QStringLiteral("event"), QStringLiteral("file-dialog")},
                                    {QStringLiteral("title"), dialog->windowTitle()},
                                    {QStringLiteral("folder"), dialog->directory().absolutePath()},
                                    {QStringLiteral("answer"), QJsonValue()}});
                   dialog->reject();
                   return {};
               });
}

ScriptedUser& ScriptedUser::Help() {
    return Add(QStringLiteral("help"), WindowKind::Dialog, [](QWidget* w) -> QString {
        QTest::keyClick(w, Qt::Key_F1);
        return {};
    });
}

ScriptedUser& ScriptedUser::Close() {
    return Add(QStringLiteral("close"), WindowKind::Any, [](QWidget* w) -> QString {
        w->close();
        return {};
    });
}

ScriptedUser& ScriptedUser::Shot(const QString& pngPath) {
    return Add(QStringLiteral("shot"), WindowKind::Any, [pngPath](QWidget* w) -> QString {
        if (!w->grab().save(pngPath))
            return QStringLiteral("cannot write %1").arg(pngPath);
        return {};
    });
}

ScriptedUser& ScriptedUser::Inspect(std::function<void(QWidget*)> check) {
    return Add(QStringLiteral("inspect"), WindowKind::Any, [check](QWidget* w) -> QString {
        check(w);
        return {};
    });
}

ScriptedUser& ScriptedUser::Read(unsigned id) {
    return OnControl(QStringLiteral("read %1").arg(id), id, [this, id](QWidget* c) -> QString {
        QJsonObject state = ControlState(c);
        state.insert(QStringLiteral("event"), QStringLiteral("control"));
        state.insert(QStringLiteral("id"), int(id));
        Emit(state);
        return {};
    });
}

QJsonObject ScriptedUser::ControlState(QWidget* c) {
    QJsonObject o;
    o.insert(QStringLiteral("enabled"), c->isEnabled());
    o.insert(QStringLiteral("visible"), c->isVisible());
    if (auto* e = qobject_cast<QLineEdit*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("edit"));
        o.insert(QStringLiteral("text"), e->text());
        o.insert(QStringLiteral("readOnly"), e->isReadOnly());
    } else if (auto* combo = qobject_cast<QComboBox*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("combo"));
        QJsonArray items;
        for (int i = 0; i < combo->count(); ++i)
            items.append(combo->itemText(i));
        o.insert(QStringLiteral("items"), items);
        o.insert(QStringLiteral("selected"), combo->currentIndex());
        o.insert(QStringLiteral("text"), combo->currentText());
    } else if (auto* b = qobject_cast<QAbstractButton*>(c)) {
        const bool push = qobject_cast<QPushButton*>(c) != nullptr;
        o.insert(QStringLiteral("kind"), push ? QStringLiteral("button")
                                         : b->autoExclusive() || b->group()
                                             ? QStringLiteral("radio")
                                             : QStringLiteral("check"));
        o.insert(QStringLiteral("text"), b->text());
        if (!push)
            o.insert(QStringLiteral("checked"), b->isChecked());
    } else if (auto* view = qobject_cast<QAbstractItemView*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("list"));
        QJsonArray rows;
        auto* model = view->model();
        for (int r = 0; model && r < model->rowCount(); ++r) {
            QJsonArray cells;
            for (int col = 0; col < model->columnCount(); ++col)
                cells.append(model->index(r, col).data().toString());
            rows.append(cells);
        }
        o.insert(QStringLiteral("rows"), rows);
        // The check box of each row (its first cell), for lists that have them.
        if (model && model->rowCount() > 0 &&
            model->index(0, 0).data(Qt::CheckStateRole).isValid()) {
            QJsonArray checked;
            for (int r = 0; r < model->rowCount(); ++r)
                checked.append(model->index(r, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked);
            o.insert(QStringLiteral("checked"), checked);
        }
        // A list that marks one row apart from the selection (the current
        // line type) says which.
        if (const QVariant marked = view->property("markedRow"); marked.isValid())
            o.insert(QStringLiteral("marked"), marked.toInt());
        const QModelIndex cur = view->selectionModel() && view->selectionModel()->hasSelection()
                                    ? view->selectionModel()->selectedIndexes().value(0)
                                    : QModelIndex();
        o.insert(QStringLiteral("selected"), cur.isValid() ? cur.row() : -1);
    } else if (auto* tab = qobject_cast<QTabBar*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("tabs"));
        QJsonArray items;
        for (int i = 0; i < tab->count(); ++i)
            items.append(tab->tabText(i));
        o.insert(QStringLiteral("items"), items);
        o.insert(QStringLiteral("selected"), tab->currentIndex());
    } else if (auto* sb = qobject_cast<QScrollBar*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("scrollbar"));
        o.insert(QStringLiteral("value"), sb->value());
    } else if (auto* g = qobject_cast<QGroupBox*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("group"));
        o.insert(QStringLiteral("text"), g->title());
    } else if (auto* swatch = qobject_cast<CColorStatic*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("swatch"));
        o.insert(QStringLiteral("rgb"), ulo::ColorFromRef(swatch->GetColor()).name());
        // A swatch of a colour index says which, and the name shown for it.
        for (const char* name : {"colorIndex", "shownColorIndex", "colorName"})
            if (const QVariant v = c->property(name); v.isValid())
                o.insert(QLatin1String(name), QJsonValue::fromVariant(v));
    } else if (auto* l = qobject_cast<QLabel*>(c)) {
        o.insert(QStringLiteral("kind"), QStringLiteral("static"));
        o.insert(QStringLiteral("text"), l->text());
    } else {
        o.insert(QStringLiteral("kind"), QString::fromLatin1(c->metaObject()->className()));
    }
    return o;
}

void ScriptedUser::NoteWindow(QWidget* window) {
    if (window == lastWindow_)
        return;
    lastWindow_ = window;
    if (kindOf(window) != WindowKind::Dialog)
        return;
    // A dialog seen again after a message box closed is not a new one.
    seen_.erase(std::remove_if(seen_.begin(), seen_.end(),
                               [](const QPointer<QWidget>& p) { return p.isNull(); }),
                seen_.end());
    if (std::find(seen_.begin(), seen_.end(), window) != seen_.end())
        return;
    seen_.push_back(window);
    DialogRecord r;
    r.title = window->windowTitle();
    r.templateId = window->property(ulo::prop::kBaseId).toUInt();
    r.layout = window->property(ulo::prop::kLayout).isValid()
                   ? window->property(ulo::prop::kLayout).toInt()
                   : -1;
    r.help = ulo::GetHelpTopic().ToQString();
    dialogs_.push_back(r);
    Emit(QJsonObject{
        {QStringLiteral("event"), QStringLiteral("dialog")},
        {QStringLiteral("title"), r.title},
        {QStringLiteral("template"), int(r.templateId)},
        {QStringLiteral("layout"), r.layout},
        {QStringLiteral("help"), r.help.isEmpty() ? QJsonValue() : QJsonValue(r.help)}});
}

void ScriptedUser::Tick() {
    if (!stopped_)
        QTimer::singleShot(kTickMs, this, &ScriptedUser::Tick);
    if (closing_)
        return;
    QWidget* window = QApplication::activeModalWidget();
    if (!window || !window->isVisible()) {
        idleMs_ = 0;
        return;
    }
    NoteWindow(window);
    if (steps_.empty() && whenIdle)
        whenIdle(window);
    if (steps_.empty()) {
        idleMs_ += kTickMs;
        if (idleMs_ >= idleLimitMs_) {
            Fail(QStringLiteral("\"%1\" was left open").arg(windowTitle(window)), line_);
            CloseAll();
        }
        return;
    }
    idleMs_ = 0;
    Step step = std::move(steps_.front());
    steps_.pop_front();
    const WindowKind actual = kindOf(window);
    if (step.kind != WindowKind::Any && step.kind != actual) {
        Fail(QStringLiteral("%1: expected a %2 in front, found the %3 \"%4\"")
                 .arg(step.what, kindName(step.kind), kindName(actual), windowTitle(window)),
             step.line);
        CloseAll();
        return;
    }
    window->activateWindow();
    const QString error = step.run(window);
    if (!error.isEmpty()) {
        Fail(QStringLiteral("%1: %2").arg(step.what, error), step.line);
        CloseAll();
    }
}

void ScriptedUser::Fail(const QString& message, int line) {
    failures_.push_back(message);
    steps_.clear();
    Emit(QJsonObject{{QStringLiteral("event"), QStringLiteral("error")},
                     {QStringLiteral("line"), line},
                     {QStringLiteral("message"), message}});
}

void ScriptedUser::CloseAll() {
    closing_ = true;
    // Close from the top down: each close ends one modal loop, but the loops
    // unwind only after this returns, so close every window in the stack.
    for (int pass = 0; pass < 8; ++pass) {
        QWidget* w = QApplication::activeModalWidget();
        if (!w)
            break;
        if (auto* d = qobject_cast<QDialog*>(w))
            d->reject();
        else
            w->close();
        if (QApplication::activeModalWidget() == w)
            w->hide();
    }
    closing_ = false;
    idleMs_ = 0;
}

void ScriptedUser::Emit(const QJsonObject& event) {
    if (onEvent)
        onEvent(event);
}

QString ScriptedUser::Report() const {
    QStringList lines;
    for (const auto& f : failures_)
        lines << QStringLiteral("failure: ") + f;
    for (const auto& s : steps_)
        lines << QStringLiteral("not performed: ") + s.what;
    return lines.join(QLatin1Char('\n'));
}

}  // namespace automation
