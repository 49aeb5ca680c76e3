#include "SiblingWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

SiblingWindow::SiblingWindow(const QString& programName, const QStringList& arguments, QWidget* parent)
    : QWidget(parent)
{
    setWindowTitle(programName);
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(tr("Stand-in for %1").arg(programName), this);
    title->setObjectName(QStringLiteral("m_pLabelProgram"));
    layout->addWidget(title);
    auto* details = new QLabel(DescribeArguments(arguments).join(QLatin1Char('\n')), this);
    details->setObjectName(QStringLiteral("m_pLabelArguments"));
    details->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(details);
    auto* close = new QPushButton(tr("Close"), this);
    close->setObjectName(QStringLiteral("m_pBtnClose"));
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    layout->addWidget(close);
}

QStringList SiblingWindow::DescribeArguments(const QStringList& arguments)
{
    if (arguments.isEmpty())
        return {tr("no arguments")};
    if (arguments.size() == 1)
        return {tr("launch key: %1").arg(arguments.at(0))};
    if (arguments.size() == 3) {
        return {tr("key: %1").arg(arguments.at(0)), tr("launch key: %1").arg(arguments.at(1)),
                tr("server address: %1").arg(arguments.at(2))};
    }
    return {tr("unexpected arguments: %1").arg(arguments.join(QLatin1Char(' ')))};
}
