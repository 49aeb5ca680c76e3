#pragma once

#include <QString>

// Where downloaded packages are kept below the application data folder.
class CLmUpdateFolders
{
public:
    // Application and launcher installers.
    static QString Installers();
    // Aircraft firmware packages, with firmware.json naming the one held.
    static QString Firmware();
};
