#pragma once

#include <QString>

// What the station keeps across restarts, in DIR/station.ini: its work mode,
// the known point and recording parameters, and the caster it logs in to.
struct BaseSettings
{
    enum EWorkMode { Base = 0, Rover = 1, Static = 2 };

    int workMode = Static;
    double latitude = 0.0;   // ddmm form as the ground station sent it
    double longitude = 0.0;
    double height = 0.0;
    int elevationMask = 15;
    int rate = 1;
    int gnssType = 7;
    QString diffFormat = QStringLiteral("RTCM32");
    QString casterHost;
    int casterPort = 0;
    QString casterAccount;
    QString casterPassword;
    QString casterMount;

    static BaseSettings Load(const QString& path);
    void Save(const QString& path) const;

private:
    // Calls visit(key, member) for every kept value of settings (const or not).
    template <typename TSettings, typename TVisit>
    static void Visit(TSettings& settings, TVisit visit)
    {
        visit("station/work_mode", settings.workMode);
        visit("station/elevation_mask", settings.elevationMask);
        visit("station/rate", settings.rate);
        visit("station/gnss_type", settings.gnssType);
        visit("station/diff_format", settings.diffFormat);
        visit("point/latitude", settings.latitude);
        visit("point/longitude", settings.longitude);
        visit("point/height", settings.height);
        visit("caster/host", settings.casterHost);
        visit("caster/port", settings.casterPort);
        visit("caster/account", settings.casterAccount);
        visit("caster/password", settings.casterPassword);
        visit("caster/mount", settings.casterMount);
    }
};
