#pragma once

#include <QObject>

// Keeps the local no-fly-zone database current with the cloud.
class CLmNoFlyZoneUpgrade : public QObject
{
    Q_OBJECT
public:
    explicit CLmNoFlyZoneUpgrade(QObject* parent = nullptr);

    // Checks the cloud for zone changes; does nothing while offline.
    void Start();
};
