#pragma once

#include <QHash>
#include <QStyledItemDelegate>

class QAbstractItemView;

// Draws the download column of the project details page's mission table: a
// download mark while the mission's flight data is not on this computer, a
// done mark once it is, each followed by the mission's text. Set it for that
// column only; the mission id is read from the row's first column
// (LmProjMgrRole::MissionId). Clicking the download mark emits
// signalClickedDownload with the index of the row's first column.
class CLmMissionTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    // Flight-data state of a mission as slotUpdateFlightTxt receives it. A
    // mission not reported yet counts as not downloaded.
    enum EFlightState {
        FlightNotDownloaded = 0,
        FlightDownloaded = 1,
        FlightDownloading = 2,  // text only, no mark to click
    };

    explicit CLmMissionTableDelegate(QAbstractItemView* pView);

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

Q_SIGNALS:
    void signalClickedDownload(const QModelIndex& index);

public Q_SLOTS:
    // Sets the text and state of mission strKey.
    void slotUpdateFlightTxt(QString strTxt, int nState, QString strKey);

private:
    struct SFlight
    {
        QString strTxt;
        int nState = FlightNotDownloaded;
    };

    SFlight MissionFlight(const QModelIndex& index) const;

    QAbstractItemView* m_pView;
    QHash<QString, SFlight> m_mapFlight;
};
