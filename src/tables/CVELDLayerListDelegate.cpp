#include "CVELDLayerListDelegate.h"

#include <QCoreApplication>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "CVELDLayerListModel.h"
#include "app/VELD.h"
#include "ulo/PalmDevice.h"

namespace {

using Icon = CVELDLayerListDelegate::Icon;

/// The icon of a state column for @p layer.
Icon StateIcon(int column, const veld::CLayer& layer) {
    const unsigned flags = layer.GetFlags();
    switch (column) {
        case CVELDLayerListModel::kColOn:
            return flags & veld::CLayer::kFlagOff ? Icon::Off : Icon::On;
        case CVELDLayerListModel::kColFreeze:
            return flags & veld::CLayer::kFlagFrozen ? Icon::Frozen : Icon::Thawed;
        default:
            return flags & veld::CLayer::kFlagLocked ? Icon::Locked : Icon::Unlocked;
    }
}

/// The rendered icons, by icon, size and density.
QHash<quint64, QPixmap>& IconCache() {
    static QHash<quint64, QPixmap> pixmaps;
    return pixmaps;
}

/// Pixmaps go before the application that made them.
void ClearIconCache() {
    IconCache().clear();
}

}  // namespace

CVELDLayerListDelegate::CVELDLayerListDelegate(CVELD* cad, QObject* parent)
    : CTableListDelegate(parent), cad_(cad) {}

QString CVELDLayerListDelegate::IconPath(Icon icon) {
    switch (icon) {
        case Icon::On:
            return QStringLiteral(":/veld5/icons/layer-on.svg");
        case Icon::Off:
            return QStringLiteral(":/veld5/icons/layer-off.svg");
        case Icon::Frozen:
            return QStringLiteral(":/veld5/icons/layer-frozen.svg");
        case Icon::Thawed:
            return QStringLiteral(":/veld5/icons/layer-thawed.svg");
        case Icon::Locked:
            return QStringLiteral(":/veld5/icons/layer-locked.svg");
        case Icon::Unlocked:
            break;
    }
    return QStringLiteral(":/veld5/icons/layer-unlocked.svg");
}

int CVELDLayerListDelegate::IconSize(int multiplier) {
    return multiplier <= 1 ? 14 : 32;
}

QPixmap CVELDLayerListDelegate::IconPixmap(Icon icon, int size, qreal dpr) {
    if (size <= 0 || !(dpr > 0))
        return {};
    // Densities differ in steps of 1/4 at least; thousandths tell them apart.
    const quint64 key = (quint64(static_cast<unsigned>(icon)) << 56) |
                        (quint64(static_cast<unsigned>(size) & 0xFFFFFF) << 32) |
                        quint64(static_cast<quint32>(std::lround(dpr * 1000)));
    QHash<quint64, QPixmap>& cache = IconCache();
    if (const auto it = cache.constFind(key); it != cache.constEnd())
        return *it;
    QSvgRenderer renderer(IconPath(icon));
    QPixmap pixmap;
    if (renderer.isValid()) {
        const int side = std::max(1, static_cast<int>(std::lround(size * dpr)));
        pixmap = QPixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        renderer.render(&p, QRectF(0, 0, side, side));
        p.end();
        pixmap.setDevicePixelRatio(dpr);
    }
    if (cache.isEmpty())
        qAddPostRoutine(ClearIconCache);
    cache.insert(key, pixmap);
    return pixmap;
}

void CVELDLayerListDelegate::PaintCell(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QModelIndex& index, int multiplier) const {
    const veld::CLayer* layer = CVELDLayerListModel::ItemOf(index);
    const QRect& cell = option.rect;
    switch (index.column()) {
        case CVELDLayerListModel::kColOn:
        case CVELDLayerListModel::kColFreeze:
        case CVELDLayerListModel::kColLock: {
            // A row lower than the icon gets the icon scaled to its height.
            const int size = std::min(IconSize(multiplier), cell.height());
            if (size <= 0 || cell.width() <= size)
                break;
            const QPixmap pixmap = IconPixmap(StateIcon(index.column(), *layer), size,
                                              painter->device()->devicePixelRatio());
            painter->drawPixmap(cell.left() + (cell.width() - size) / 2,
                                cell.top() + (cell.height() - size) / 2, pixmap);
            break;
        }
        case CVELDLayerListModel::kColColor: {
            const int swatch = std::min(12 * multiplier, cell.height());
            if (swatch <= 0 || cell.width() <= swatch + 4 * multiplier)
                break;
            const QRect square(cell.left() + 2 * multiplier,
                               cell.top() + (cell.height() - swatch) / 2, swatch, swatch);
            const GColor rgb = GetClrNo(cad_, layer->GetColor());
            const QColor text = option.palette.color(QPalette::Text);
            painter->fillRect(square, QColor(rgb.Red(), rgb.Green(), rgb.Blue()));
            painter->setPen(text);
            painter->drawRect(square.adjusted(0, 0, -1, -1));
            const int left = cell.left() + swatch + 3 * multiplier;
            const int width = cell.left() + cell.width() - 4 * multiplier - left;
            if (width <= 0)
                break;
            const QString name =
                option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, width);
            painter->drawText(QRect(left, cell.top(), width, cell.height()),
                              Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, name);
            break;
        }
        default:
            CTableListDelegate::PaintCell(painter, option, index, multiplier);
            break;
    }
}

QSize CVELDLayerListDelegate::sizeHint(const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const {
    const int multiplier = CPalmDevice::GetResMultiplier();
    const int height = option.fontMetrics.height();
    switch (index.column()) {
        case CVELDLayerListModel::kColOn:
        case CVELDLayerListModel::kColFreeze:
        case CVELDLayerListModel::kColLock:
            return QSize(IconSize(multiplier) + 4 * multiplier, height);
        case CVELDLayerListModel::kColColor:
            return QSize(
                19 * multiplier + option.fontMetrics.horizontalAdvance(index.data().toString()),
                height);
        default:
            return CTableListDelegate::sizeHint(option, index);
    }
}
