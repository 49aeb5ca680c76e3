#include "CLmMissionTableDelegate.h"

#include "LmProjMgrRoles.h"
#include "LmProjRowLayout.h"
#include "LmProjRowPainting.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

using namespace LmProjRowLayout;
using namespace LmProjRowPainting;

namespace {

QString MarkImage(int nState)
{
    switch (nState) {
    case CLmMissionTableDelegate::FlightNotDownloaded:
    case CLmMissionTableDelegate::FlightDownloadFailed:
        return QStringLiteral(":/images/Normal/ProjMgr/download_ic.png");
    case CLmMissionTableDelegate::FlightDownloaded:
        return QStringLiteral(":/images/Normal/ProjMgr/yes_ic.png");
    default:
        return QString();
    }
}

QString ReDownloadWord()
{
    return CLmMissionTableDelegate::tr("Re-download");
}

// The link colour of the application style.
const QColor LinkColor(0x2f, 0x80, 0xed);

// A click that starts a download: on the download mark of a mission not on
// this computer, or on the mark or "Re-download" of a failed one.
bool IsDownloadClick(int nState, const QStyleOptionViewItem& option, const QPoint& pos)
{
    if (nState == CLmMissionTableDelegate::FlightDownloadFailed
        && TrailingWordRect(option.rect, QFontMetrics(RowFont(option.font)), ReDownloadWord()).contains(pos))
        return true;
    return (nState == CLmMissionTableDelegate::FlightNotDownloaded
            || nState == CLmMissionTableDelegate::FlightDownloadFailed)
           && MarkRect(option.rect).contains(pos);
}

}  // namespace

CLmMissionTableDelegate::CLmMissionTableDelegate(QAbstractItemView* pView)
    : QStyledItemDelegate(pView)
    , m_pView(pView)
{
}

void CLmMissionTableDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    QStyleOptionViewItem cellOption(option);
    initStyleOption(&cellOption, index);
    DrawItemBackground(pPainter, cellOption);

    const SFlight flight = MissionFlight(index);
    const QRect markRect = MarkRect(cellOption.rect);
    const QString strImage = MarkImage(flight.nState);
    if (!strImage.isEmpty())
        pPainter->drawPixmap(markRect, QPixmap(strImage));

    pPainter->save();
    const QFont font = RowFont(cellOption.font);
    pPainter->setFont(font);
    int iTextEnd = cellOption.rect.left() + cellOption.rect.width() - TextPadding;
    if (flight.nState == FlightDownloadFailed) {
        const QRect wordRect = TrailingWordRect(cellOption.rect, QFontMetrics(font), ReDownloadWord());
        pPainter->setPen(LinkColor);
        DrawItemText(pPainter, wordRect, ReDownloadWord(), Qt::AlignLeft | Qt::AlignVCenter);
        iTextEnd = wordRect.left() - TextPadding;
    }
    pPainter->setPen(TextColor(cellOption));
    const int iTextLeft = markRect.right() + 1 + TextPadding;
    const QRect textRect(iTextLeft, cellOption.rect.top(), iTextEnd - iTextLeft, cellOption.rect.height());
    DrawItemText(pPainter, textRect, flight.strTxt, Qt::AlignLeft | Qt::AlignVCenter);
    pPainter->restore();
}

bool CLmMissionTableDelegate::editorEvent(QEvent* pEvent, QAbstractItemModel*, const QStyleOptionViewItem& option,
                                          const QModelIndex& index)
{
    if (pEvent->type() != QEvent::MouseButtonRelease)
        return false;
    const auto* pMouse = static_cast<QMouseEvent*>(pEvent);
    if (pMouse->button() != Qt::LeftButton || !IsDownloadClick(MissionFlight(index).nState, option, pMouse->pos()))
        return false;
    emit signalClickedDownload(index.siblingAtColumn(0));
    return true;
}

void CLmMissionTableDelegate::slotUpdateFlightTxt(QString strTxt, int nState, QString strKey)
{
    m_mapFlight.insert(strKey, {strTxt, nState});
    m_pView->viewport()->update();
}

CLmMissionTableDelegate::SFlight CLmMissionTableDelegate::MissionFlight(const QModelIndex& index) const
{
    const QString strMissionId = index.siblingAtColumn(0).data(LmProjMgrRole::MissionId).toString();
    const auto it = m_mapFlight.constFind(strMissionId);
    if (it != m_mapFlight.constEnd())
        return *it;
    return {index.data(Qt::DisplayRole).toString(), FlightNotDownloaded};
}
