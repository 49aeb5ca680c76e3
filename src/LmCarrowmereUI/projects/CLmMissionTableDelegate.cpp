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
        return QStringLiteral(":/images/Normal/ProjMgr/download_ic.png");
    case CLmMissionTableDelegate::FlightDownloaded:
        return QStringLiteral(":/images/Normal/ProjMgr/yes_ic.png");
    default:
        return QString();
    }
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
    pPainter->setFont(RowFont(cellOption.font));
    pPainter->setPen(TextColor(cellOption));
    const int iTextLeft = markRect.right() + 1 + TextPadding;
    const QRect textRect(iTextLeft, cellOption.rect.top(),
                         cellOption.rect.left() + cellOption.rect.width() - TextPadding - iTextLeft,
                         cellOption.rect.height());
    DrawItemText(pPainter, textRect, flight.strTxt, Qt::AlignLeft | Qt::AlignVCenter);
    pPainter->restore();
}

bool CLmMissionTableDelegate::editorEvent(QEvent* pEvent, QAbstractItemModel*, const QStyleOptionViewItem& option,
                                          const QModelIndex& index)
{
    if (pEvent->type() != QEvent::MouseButtonRelease)
        return false;
    const auto* pMouse = static_cast<QMouseEvent*>(pEvent);
    if (pMouse->button() != Qt::LeftButton || MissionFlight(index).nState != FlightNotDownloaded
        || !MarkRect(option.rect).contains(pMouse->pos()))
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
