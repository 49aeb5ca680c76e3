#pragma once

#include <QPushButton>
#include <QSize>

// Push button that can show a red dot in its top-right corner, e.g. to flag
// news behind the button.
class CLmTipPushButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CLmTipPushButton(QWidget* parent = nullptr);

    // Distance of the dot from the right and top edges.
    void SetTipMargin(int right, int top);
    void SetTipSize(const QSize& size);
    void SetTipVisible(bool bVisible);
    bool IsTipVisible() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect TipRect() const;

    int m_nTipRight = 5;
    int m_nTipTop = 5;
    QSize m_sizeTip{8, 8};
    bool m_bTipVisible = false;
};
