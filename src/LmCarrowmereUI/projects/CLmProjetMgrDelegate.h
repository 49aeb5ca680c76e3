#pragma once

#include <QHash>

#include "CLmRowButtonDelegate.h"
#include "LmProjRowLayout.h"

// Draws the project manager's rows and makes their painted parts clickable:
// the check box of the project column, the flight-log state word and the row
// buttons, which sit right-aligned in the create-time column after the time.
// Signals carry the index of the row's first column, where its data lives.
class CLmProjetMgrDelegate : public CLmRowButtonDelegate
{
    Q_OBJECT
public:
    // Flight-log state as slotUpdateStateTxt receives it.
    enum EFlightLogState {
        FlightLogNone = 0,      // no missions: the text is drawn alone
        FlightLogComplete = 1,  // every flight is on this computer: "Complete"
        FlightLogMissing = 2,   // some flights are not: "Click download"
    };

    // Serves pView's rows and is owned by pView. Turns on the view's mouse
    // tracking and hover so that tool tips and hover images follow the mouse.
    explicit CLmProjetMgrDelegate(QAbstractItemView* pView);

Q_SIGNALS:
    void signalShareBtnClicked(const QModelIndex& index);
    void signalDeleteBtnClicked(const QModelIndex& index);
    void signalDetailsBtnClicked(const QModelIndex& index);
    void signalDownloadBtnClicked(const QModelIndex& index);
    void signalOpenBtnClicked(const QModelIndex& index);
    void signalClickedDownload(const QModelIndex& index);

public Q_SLOTS:
    // Forgets every reported state; rows draw the in-step buttons and their
    // flight-log text alone until reported again.
    void slotResetBtn();
    void slotUpdateStateTxt(QString strTxt, int nState, QString strKey);
    void slotUpdateStateBtn(int nState, QString strKey);
    void slotAllChecked(Qt::CheckState state);

protected:
    QVector<SButton> RowButtons(const QModelIndex& index) const override;
    void PaintCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption, const QModelIndex& index) const override;
    bool HandleRelease(const QPoint& pos, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
                       const QModelIndex& index) override;

private:
    struct SFlightLog
    {
        QString strTxt;
        int nState = FlightLogNone;
    };
    struct SFlightLogLayout
    {
        QString strCount;
        QString strWord;
        int nState = FlightLogNone;
        LmProjRowLayout::SFlightLogRects rects;
    };

    SFlightLogLayout FlightLogLayout(const QStyleOptionViewItem& rowOption, const QModelIndex& index) const;

    void PaintFlightLogCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption,
                            const QModelIndex& index) const;
    void PaintTimeCell(QPainter* pPainter, const QStyleOptionViewItem& rowOption, const QModelIndex& index) const;

    // Synchronisation state and flight log by project id.
    QHash<QString, int> m_mapStateBtn;
    QHash<QString, SFlightLog> m_mapStateTxt;
};
