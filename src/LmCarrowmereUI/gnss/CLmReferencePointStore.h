#pragma once

#include "SLmReferencePoint.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class CLmDataBase;

// The saved reference points in "Referencepoint.db" under the application's
// "Project" folder, created on first use. Names are unique and no longer
// than their column (LmStationRules::ReferencePointNameProblem).
class CLmReferencePointStore
{
public:
    // Opens (creating when missing) the database in the application's data root.
    CLmReferencePointStore();
    // Opens (creating when missing) the database at filePath.
    explicit CLmReferencePointStore(const QString& filePath);
    ~CLmReferencePointStore();

    static QString DefaultFilePath();

    bool IsOpen() const;
    // The points in the order they were saved.
    QList<SLmReferencePoint> Points() const;
    QStringList Names() const;
    // Why a name cannot be saved, or empty when it can.
    QString NameProblem(const QString& name) const;
    bool Insert(const SLmReferencePoint& point);
    bool Remove(const QString& name);
    QString LastError() const;

private:
    void Open(const QString& filePath);
    void Load();

    std::unique_ptr<CLmDataBase> m_pDb;
    QList<SLmReferencePoint> m_lstPoints;
};
