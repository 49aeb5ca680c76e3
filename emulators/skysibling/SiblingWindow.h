#pragma once

#include <QStringList>
#include <QWidget>

// One window that names the program it stands in for and the arguments the
// hub gave it, with a button that ends it.
class SiblingWindow : public QWidget
{
    Q_OBJECT
public:
    SiblingWindow(const QString& programName, const QStringList& arguments, QWidget* parent = nullptr);

    // "name: value" lines: an attached program gets key, launch key and
    // server address; a detached one the launch key only; the viewers none.
    static QStringList DescribeArguments(const QStringList& arguments);
};
