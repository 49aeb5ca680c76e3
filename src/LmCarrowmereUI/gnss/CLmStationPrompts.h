#pragma once

#include <QString>
#include <QStringList>

// The questions and notices of the base-station controller, answered by the
// page with its message boxes and dialogs.
class CLmStationPrompts
{
public:
    virtual ~CLmStationPrompts() = default;
    // True when the user confirms the question.
    virtual bool Confirm(const QString& question) = 0;
    // A notice under the page's title and no icon.
    void Inform(const QString& text) { Notify(text, QString(), QString()); }
    virtual void Notify(const QString& text, const QString& title, const QString& iconPath) = 0;
    // The name for a new reference point, empty when the user cancelled;
    // namesInUse may not be taken again.
    virtual QString AskPointName(const QStringList& namesInUse) = 0;
};
