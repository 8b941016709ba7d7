#include "CLtypeLoadDialog.h"

#include <QHeaderView>
#include <QStyle>
#include <new>
#include <string>

#include "app/VELD.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "shell/ResString.h"
#include "ulo/PalmDevice.h"
#include "ulo/SpecialFolder.h"
#include "ulo/Xlate.h"
#include "ulo/ctrl/MessageBox.h"
#include "veld/Data.h"
#include "veld/IFile.h"

namespace veld5 {

namespace {

// Grid columns: the check box, then the name and the description; the row
// header stands before them.
constexpr int kColCheck = 0;
constexpr int kColName = 1;
constexpr int kColDesc = 2;
// Base pixel widths of the row header and the check box column.
constexpr int kRowHeaderWidth = 20;
constexpr int kCheckWidth = 40;

}  // namespace

CLtypeLoadDialog::CLtypeLoadDialog(CVELD* cad)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11036, 11037, 11038, 11039), nullptr),
      cad_(cad),
      data_(cad->GetData()),
      loader_(veld::GetMainStyleTable(data_),
              const_cast<veld::CObjectFactory*>(data_->GetObjectFactory())) {
    loader_.SetNotifier(this);
}

CLtypeLoadDialog::~CLtypeLoadDialog() = default;

veld::CLtype* CLtypeLoadDialog::GetNewLtypeNo(unsigned index) const {
    return static_cast<veld::CLtype*>(newLtypes_.GetObjectNo(index));
}

QWidget* CLtypeLoadDialog::CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) {
    if (ctrl.id != ctl::LtypeLoad::kGrid)
        return nullptr;
    grid_ = std::make_unique<CCEMSGridCtrl>(0, 3, parent);
    return grid_.get();
}

void CLtypeLoadDialog::OnInitDialog() {
    GetDlgItem<CColButton>(ctl::LtypeLoad::kFile)->SetBtnColor(2, 2);

    if (QWidget* placeholder = GetDlgItem(ctl::LtypeLoad::kPlaceholder))
        grid_->setGeometry(placeholder->geometry());
    grid_->SetAutoAddRows(false);
    grid_->setWordWrap(false);
    grid_->setTextElideMode(Qt::ElideRight);

    const int m = CPalmDevice::GetResMultiplier();
    QHeaderView* rowHeader = grid_->verticalHeader();
    rowHeader->setSectionResizeMode(QHeaderView::Fixed);
    rowHeader->setFixedWidth(kRowHeaderWidth * m);
    // Rows a line of text high, so that a landscape screen shows several.
    rowHeader->setMinimumSectionSize(1);
    rowHeader->setDefaultSectionSize(grid_->fontMetrics().height() + 6);
    QHeaderView* columns = grid_->horizontalHeader();
    columns->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    columns->setMinimumSectionSize(0);
    columns->setStretchLastSection(false);
    columns->setSectionResizeMode(QHeaderView::Fixed);
    // The name and the description share what the row header, the check
    // boxes and a vertical scroll bar leave inside the frame, so that no
    // horizontal scroll bar is ever needed.
    const int scrollBar =
        grid_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, grid_.get());
    const int room = grid_->width() - 2 * grid_->frameWidth() - scrollBar;
    const int textWidth = std::max(0, (room - (kRowHeaderWidth + kCheckWidth) * m) / 2);
    grid_->setColumnWidth(kColCheck, kCheckWidth * m);
    grid_->setColumnWidth(kColName, textWidth);
    grid_->setColumnWidth(kColDesc, textWidth);
    grid_->setHorizontalHeaderLabels({QString(), LoadResString(ids::kColLtype).ToQString(),
                                      LoadResString(ids::kColDescription).ToQString()});

    ulo::WString library;
    ulo::FGetSpecialFolderPathAndSubDir(ulo::kFolderSupport, L"support\\veld.lin", library);
    LoadFile(library);
}

bool CLtypeLoadDialog::OnCommand(unsigned id) {
    if (id == ctl::LtypeLoad::kFile) {
        OnFile();
        return true;
    }
    return CExDialog::OnCommand(id);
}

void CLtypeLoadDialog::OnFile() {
    ulo::WString library;
    ulo::FGetSpecialFolderPathAndSubDir(ulo::kFolderSupport, L"Support\\veld.lin", library);
    const ulo::WString filter = ulo::Xlate(L"Linetype") + ulo::WString(L"|*.lin");
    ulo::WString picked;
    if (!ulo::GetOpenFileName(this, ulo::WString(), filter, ulo::EstraiIlPathFile(library), picked))
        return;
    LoadFile(picked);
}

void CLtypeLoadDialog::LoadFile(const ulo::WString& path) {
    path_ = path;
    SetDlgItemText(ctl::LtypeLoad::kPath, path_.ToQString());
    // The rows point at the loader's line types, which the load releases.
    FillGrid(0);
    // The loader reports rejected definitions with this very path while it
    // reads: it must not change under it.
    const ulo::WString file = path;
    unsigned listed = 0;
    try {
        loader_.Load(file.c_str());
        listed = loader_.GetNoLtypes();
    } catch (const veld::IFile::IFileException&) {
        // The file failed part way (not at its end): like a file that cannot
        // be read, it offers nothing, rather than the rows before the failure
        // as if they were the whole library.
    } catch (const std::bad_alloc&) {
    }
    FillGrid(listed);
}

void CLtypeLoadDialog::FillGrid(unsigned count) {
    grid_->setUpdatesEnabled(false);
    grid_->setRowCount(0);
    grid_->setEnabled(count > 0);
    const int first = grid_->AddRows(static_cast<int>(count));
    for (unsigned i = 0; i < count; ++i) {
        const veld::CLtype* ltype = loader_.GetLtypeNo(i);
        const int row = first + static_cast<int>(i);
        // The row header is an empty handle: row numbers would not fit it.
        grid_->setVerticalHeaderItem(row, new QTableWidgetItem());
        grid_->SetItemPtr(row, reinterpret_cast<quintptr>(ltype));
        grid_->SetCellText(row, kColName, ltype->GetName().ToQString());
        grid_->SetCellText(row, kColDesc, ltype->GetDesc().ToQString());
    }
    grid_->setUpdatesEnabled(true);
}

void CLtypeLoadDialog::OnOK() {
    newLtypes_.RemoveAll();
    veld::CLtypeTable* table = veld::GetMainLtypeTable(data_);
    const veld::CObjectFactory* factory = data_->GetObjectFactory();
    for (int row = 0; row < grid_->rowCount(); ++row) {
        if (!grid_->GetCheck(row))
            continue;
        const auto* ltype = reinterpret_cast<const veld::CLtype*>(grid_->GetItemPtr(row));
        // Two checked rows of one name both come: only the drawing's names
        // are in the way.
        if (!ltype || table->Find(ltype->GetName()))
            continue;
        veld::CLtype* made =
            factory->CreateLtype(ltype->GetName(), ltype->GetDesc(),
                                 ltype->GetLtypeComplexDashSeq(), ltype->GetFlags(), 0);
        newLtypes_.Add(made);
        made->SubReference();
    }
    CExDialog::OnOK();
}

void CLtypeLoadDialog::NotifyLoadError(const ulo::WString& fileName, unsigned lineNo,
                                       const ulo::WString& ltypeName, int errorCode) {
    const StringId reason = errorCode >= 1 && errorCode <= 7
                                ? ids::kLtypeReasonFirst + static_cast<unsigned>(errorCode - 1)
                                : ids::kLtypeReasonFirst;
    const ulo::WString text = ulo::FormatMessage(
        ulo::WString(L"Definition of {1} is not correct on line {2} in file "
                     L"{3}: {4}"),
        ltypeName, ulo::WString(std::to_wstring(lineNo)), fileName, LoadResString(reason));
    Warn(this, ids::kError, text);
}

veld::CStyle* CLtypeLoadDialog::GetUndefinedStyle(const ulo::WString&) {
    return veld::GetStyleStandard(data_);
}

}  // namespace veld5
