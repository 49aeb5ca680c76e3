#pragma once

#include <QWidget>

// Base of the application's frameless windows. Paints its style-sheet
// background itself, so a subclass may turn on WA_TranslucentBackground for
// rounded corners and still get the background it asks for.
class CLmBaseWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CLmBaseWidget(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
