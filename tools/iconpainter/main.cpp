// Draws the application's icons as PNG files. Every glyph is drawn on a 64 x 64
// grid and scaled to the icon's size, so the icons share line weights and
// proportions whatever their pixel size.

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>

#include <cmath>
#include <functional>
#include <vector>

namespace {

namespace Palette {
const QColor Navy(0x1f, 0x3b, 0x63);
const QColor NavyDark(0x13, 0x23, 0x3f);
const QColor Blue(0x1e, 0x88, 0xe5);
const QColor Sky(0x03, 0x9b, 0xe5);
const QColor Teal(0x00, 0x89, 0x7b);
const QColor Green(0x43, 0xa0, 0x47);
const QColor Red(0xe5, 0x39, 0x35);
const QColor Amber(0xff, 0xa0, 0x00);
const QColor Orange(0xf4, 0x51, 0x1e);
const QColor Purple(0x8e, 0x24, 0xaa);
const QColor Indigo(0x39, 0x49, 0xab);
const QColor Cyan(0x00, 0xac, 0xc1);
const QColor Slate(0x54, 0x6e, 0x7a);
const QColor Grey(0x90, 0xa4, 0xae);
const QColor Mist(0xcf, 0xd8, 0xdc);
const QColor White(Qt::white);
}  // namespace Palette

using Painting = std::function<void(QPainter&)>;

QPen Stroke(const QColor& color, qreal width)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void StrokePolyline(QPainter& p, const QColor& color, qreal width, const QVector<QPointF>& points)
{
    p.setPen(Stroke(color, width));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(points.constData(), points.size());
}

void Dot(QPainter& p, const QColor& color, QPointF centre, qreal radius)
{
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawEllipse(centre, radius, radius);
}

// Launcher tile: a rounded square shaded from a lighter tone at the top.
void Tile(QPainter& p, const QColor& color)
{
    QLinearGradient shade(0, 2, 0, 62);
    shade.setColorAt(0, color.lighter(125));
    shade.setColorAt(1, color);
    p.setPen(Qt::NoPen);
    p.setBrush(shade);
    p.drawRoundedRect(QRectF(2, 2, 60, 60), 14, 14);
}

void Disc(QPainter& p, const QColor& color)
{
    Dot(p, color, QPointF(32, 32), 30);
}

// ---- glyphs ---------------------------------------------------------------

void WifiGlyph(QPainter& p, const QColor& color)
{
    p.setPen(Stroke(color, 5));
    p.setBrush(Qt::NoBrush);
    for (qreal radius : {10.0, 20.0, 30.0})
        p.drawArc(QRectF(32 - radius, 50 - radius, 2 * radius, 2 * radius), 45 * 16, 90 * 16);
    Dot(p, color, QPointF(32, 50), 4.5);
}

void QuestionGlyph(QPainter& p, const QColor& color, qreal width)
{
    QPainterPath hook;
    const QRectF bowl(23, 12, 18, 18);
    hook.arcMoveTo(bowl, 160);
    hook.arcTo(bowl, 160, -250);
    hook.lineTo(32, 37);
    p.setPen(Stroke(color, width));
    p.setBrush(Qt::NoBrush);
    p.drawPath(hook);
    Dot(p, color, QPointF(32, 47), width * 0.6);
}

void CrossGlyph(QPainter& p, const QColor& color, qreal width, qreal inset)
{
    p.setPen(Stroke(color, width));
    p.drawLine(QPointF(inset, inset), QPointF(64 - inset, 64 - inset));
    p.drawLine(QPointF(64 - inset, inset), QPointF(inset, 64 - inset));
}

void EnvelopeGlyph(QPainter& p, const QColor& color)
{
    p.setPen(Stroke(color, 4));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(8, 16, 48, 34), 4, 4);
    StrokePolyline(p, color, 4, {{10, 19}, {32, 36}, {54, 19}});
}

void PlanGlyph(QPainter& p, const QColor&)
{
    StrokePolyline(p, Palette::White, 3.5, {{15, 47}, {26, 24}, {39, 39}, {49, 17}});
    for (const QPointF& waypoint : {QPointF(15, 47), QPointF(26, 24), QPointF(39, 39), QPointF(49, 17)})
        Dot(p, Palette::White, waypoint, 5);
}

void FlyGlyph(QPainter& p, const QColor& tile)
{
    const QPointF rotors[] = {{19, 19}, {45, 19}, {19, 45}, {45, 45}};
    p.setPen(Stroke(Palette::White, 4));
    for (const QPointF& rotor : rotors)
        p.drawLine(QPointF(32, 32), rotor);
    for (const QPointF& rotor : rotors) {
        Dot(p, tile, rotor, 8);
        p.setPen(Stroke(Palette::White, 3));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(rotor, 8, 8);
    }
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawRoundedRect(QRectF(25, 25, 14, 14), 4, 4);
}

void CheckGlyph(QPainter& p, const QColor&)
{
    p.setPen(Stroke(Palette::White, 4));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(28, 28), 14, 14);
    p.setPen(Stroke(Palette::White, 7));
    p.drawLine(QPointF(39, 39), QPointF(49, 49));
    StrokePolyline(p, Palette::White, 3.5, {{21, 28}, {26, 33}, {35, 23}});
}

void ProcessGlyph(QPainter& p, const QColor&)
{
    QPainterPath gear;
    gear.addEllipse(QPointF(32, 32), 15, 15);
    for (int tooth = 0; tooth < 8; ++tooth) {
        QTransform turn;
        turn.translate(32, 32);
        turn.rotate(tooth * 45.0);
        QPainterPath rect;
        rect.addRoundedRect(QRectF(-4.5, -21, 9, 10), 2, 2);
        gear = gear.united(turn.map(rect));
    }
    QPainterPath hole;
    hole.addEllipse(QPointF(32, 32), 6.5, 6.5);
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawPath(gear.subtracted(hole));
}

void MapGlyph(QPainter& p, const QColor& tile)
{
    const QPointF sheet[] = {{12, 20}, {25, 15}, {39, 20}, {52, 15}, {52, 45}, {39, 50}, {25, 45}, {12, 50}};
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawPolygon(sheet, 8);
    p.setPen(Stroke(tile.lighter(110), 2));
    p.drawLine(QPointF(25, 15), QPointF(25, 45));
    p.drawLine(QPointF(39, 20), QPointF(39, 50));
    Dot(p, Palette::Red, QPointF(32, 30), 5);
    Dot(p, Palette::White, QPointF(32, 30), 2);
}

void MonitorGlyph(QPainter& p, const QColor&)
{
    p.setPen(Stroke(Palette::White, 3.5));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(12, 15, 40, 27), 3, 3);
    p.drawLine(QPointF(32, 42), QPointF(32, 48));
    p.drawLine(QPointF(23, 49), QPointF(41, 49));
    StrokePolyline(p, Palette::White, 2.5, {{16, 30}, {23, 30}, {27, 22}, {32, 37}, {36, 27}, {39, 30}, {48, 30}});
}

void FolderGlyph(QPainter& p, const QColor& tile)
{
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    QPainterPath folder;
    folder.addRoundedRect(QRectF(11, 15, 18, 10), 3, 3);
    folder.addRoundedRect(QRectF(11, 20, 42, 30), 4, 4);
    p.drawPath(folder.simplified());
    p.setPen(Stroke(tile, 2.5));
    p.drawLine(QPointF(11, 27), QPointF(53, 27));
}

void WrenchGlyph(QPainter& p, const QColor&)
{
    QPainterPath head;
    head.addEllipse(QPointF(41, 23), 11, 11);
    QPainterPath jaw;
    jaw.addEllipse(QPointF(47, 17), 6, 6);
    QPainterPath handle;
    QTransform turn;
    turn.translate(41, 23);
    turn.rotate(45);
    handle.addRoundedRect(QRectF(-4.5, 0, 9, 34), 4.5, 4.5);
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawPath(head.united(turn.map(handle)).subtracted(jaw));
}

void CubeGlyph(QPainter& p, const QColor&)
{
    const QPointF top[] = {{32, 11}, {51, 21}, {32, 31}, {13, 21}};
    const QPointF left[] = {{13, 21}, {32, 31}, {32, 53}, {13, 43}};
    const QPointF right[] = {{32, 31}, {51, 21}, {51, 43}, {32, 53}};
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawPolygon(top, 4);
    p.setBrush(QColor(255, 255, 255, 200));
    p.drawPolygon(left, 4);
    p.setBrush(QColor(255, 255, 255, 150));
    p.drawPolygon(right, 4);
}

void PictureGlyph(QPainter& p, const QColor&)
{
    p.setPen(Stroke(Palette::White, 3.5));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(11, 15, 42, 34), 4, 4);
    const QPointF mountains[] = {{15, 45}, {27, 29}, {35, 39}, {41, 32}, {49, 45}};
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawPolygon(mountains, 5);
    Dot(p, Palette::White, QPointF(42, 23), 4);
}

// Row-button glyphs keep inside the circle of radius 22 so that the hover
// variant can put them on a disc without touching its rim.

void ShareGlyph(QPainter& p, const QColor& color)
{
    const QPointF source(20, 32), upper(44, 19), lower(44, 45);
    p.setPen(Stroke(color, 4.5));
    p.drawLine(source, upper);
    p.drawLine(source, lower);
    for (const QPointF& node : {source, upper, lower})
        Dot(p, color, node, 7);
}

void BinGlyph(QPainter& p, const QColor& color)
{
    p.setPen(Stroke(color, 4.5));
    p.setBrush(Qt::NoBrush);
    p.drawLine(QPointF(15, 19), QPointF(49, 19));
    StrokePolyline(p, color, 4.5, {{26, 19}, {27, 13}, {37, 13}, {38, 19}});
    StrokePolyline(p, color, 4.5, {{19, 19}, {21.5, 51}, {42.5, 51}, {45, 19}});
    p.setPen(Stroke(color, 3.5));
    p.drawLine(QPointF(28, 27), QPointF(28.5, 43));
    p.drawLine(QPointF(36, 27), QPointF(35.5, 43));
}

void CloudDownloadGlyph(QPainter& p, const QColor& color)
{
    QPainterPath cloud;
    cloud.moveTo(22, 41);
    cloud.arcTo(QRectF(10, 25, 16, 16), 270, -180);
    cloud.arcTo(QRectF(18, 14, 24, 24), 160, -150);
    cloud.arcTo(QRectF(38, 23, 16, 18), 90, -180);
    cloud.lineTo(42, 41);
    p.setPen(Stroke(color, 4.5));
    p.setBrush(Qt::NoBrush);
    p.drawPath(cloud);
    p.drawLine(QPointF(32, 28), QPointF(32, 51));
    StrokePolyline(p, color, 4.5, {{25, 44}, {32, 51}, {39, 44}});
}

// A paper plane: what is sent.
void SendGlyph(QPainter& p, const QColor& color)
{
    const QPointF plane[] = {{12, 31}, {52, 14}, {40, 50}, {30, 37}};
    p.setPen(Stroke(color, 4.5));
    p.setBrush(Qt::NoBrush);
    p.drawPolygon(plane, 4);
    p.drawLine(QPointF(30, 37), QPointF(52, 14));
}

// An arrow into a tray.
void TrayDownloadGlyph(QPainter& p, const QColor& color)
{
    p.setPen(Stroke(color, 4.5));
    p.drawLine(QPointF(32, 12), QPointF(32, 38));
    StrokePolyline(p, color, 4.5, {{22, 29}, {32, 39}, {42, 29}});
    StrokePolyline(p, color, 4.5, {{13, 38}, {13, 50}, {51, 50}, {51, 38}});
}

void InfoGlyph(QPainter& p, const QColor& color)
{
    p.setPen(Stroke(color, 4.5));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(32, 32), 20, 20);
    p.setPen(Stroke(color, 5.5));
    p.drawLine(QPointF(32, 30), QPointF(32, 42));
    Dot(p, color, QPointF(32, 22), 3.5);
}

void OpenFolderGlyph(QPainter& p, const QColor& color)
{
    StrokePolyline(p, color, 4.5, {{15, 46}, {15, 17}, {26, 17}, {30, 22}, {44, 22}, {44, 28}});
    const QPointF flap[] = {{15, 46}, {22, 29}, {52, 29}, {45, 46}};
    p.setPen(Stroke(color, 4.5));
    p.setBrush(Qt::NoBrush);
    p.drawPolygon(flap, 4);
}

// The cloud-download glyph in white, for a tile of any colour.
void DownloadedGlyph(QPainter& p, const QColor&)
{
    CloudDownloadGlyph(p, Palette::White);
}

void CheckMark(QPainter& p, const QColor& color, qreal width)
{
    StrokePolyline(p, color, width, {{19, 33}, {28, 42}, {45, 23}});
}

void ChevronGlyph(QPainter& p, const QColor& color, bool pointsDown)
{
    const qreal tip = pointsDown ? 42 : 22;
    const qreal base = pointsDown ? 24 : 40;
    StrokePolyline(p, color, 8, {{14, base}, {32, tip}, {50, base}});
}

void PersonGlyph(QPainter& p, const QColor&)
{
    Dot(p, Palette::White, QPointF(27, 22), 8);
    QPainterPath body;
    body.moveTo(11, 50);
    body.cubicTo(11, 36, 18, 33, 27, 33);
    body.cubicTo(36, 33, 43, 36, 43, 50);
    body.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawPath(body);
    StrokePolyline(p, Palette::White, 4, {{40, 27}, {45, 32}, {54, 21}});
}

void TransferGlyph(QPainter& p, const QColor&)
{
    p.setPen(Stroke(Palette::White, 4.5));
    p.drawLine(QPointF(24, 50), QPointF(24, 16));
    StrokePolyline(p, Palette::White, 4.5, {{15, 25}, {24, 15}, {33, 25}});
    p.drawLine(QPointF(40, 14), QPointF(40, 48));
    StrokePolyline(p, Palette::White, 4.5, {{31, 39}, {40, 49}, {49, 39}});
}

void HomeGlyph(QPainter& p, const QColor&)
{
    StrokePolyline(p, Palette::White, 4.5, {{12, 32}, {32, 14}, {52, 32}});
    StrokePolyline(p, Palette::White, 4.5, {{18, 28}, {18, 50}, {46, 50}, {46, 28}});
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawRoundedRect(QRectF(27, 36, 10, 14), 2, 2);
}

void WhiteShareGlyph(QPainter& p, const QColor&)
{
    p.translate(32, 32);
    p.scale(0.8, 0.8);
    p.translate(-32, -32);
    ShareGlyph(p, Palette::White);
}

// ---- whole icons ------------------------------------------------------------

Painting Launcher(const QColor& tile, void (*glyph)(QPainter&, const QColor&))
{
    return [tile, glyph](QPainter& p) {
        Tile(p, tile);
        glyph(p, tile);
    };
}

void MessageOk(QPainter& p)
{
    Disc(p, Palette::Green);
    StrokePolyline(p, Palette::White, 6, {{19, 33}, {28, 42}, {45, 23}});
}

void MessageFailed(QPainter& p)
{
    Disc(p, Palette::Red);
    CrossGlyph(p, Palette::White, 6, 22);
}

void MessageQuestion(QPainter& p)
{
    Disc(p, Palette::Blue);
    QuestionGlyph(p, Palette::White, 6);
}

// The accept and refuse buttons of a waiting received share.
void ReceiveButton(QPainter& p)
{
    Disc(p, Palette::Green);
    p.setPen(Stroke(Palette::White, 5));
    p.drawLine(QPointF(32, 16), QPointF(32, 40));
    StrokePolyline(p, Palette::White, 5, {{22, 31}, {32, 41}, {42, 31}});
    p.drawLine(QPointF(20, 48), QPointF(44, 48));
}

void RefuseButton(QPainter& p)
{
    Disc(p, Palette::Red);
    CrossGlyph(p, Palette::White, 6, 22);
}

void MessageMark(QPainter& p)
{
    EnvelopeGlyph(p, Palette::Blue);
}

void MessageExclamation(QPainter& p)
{
    Disc(p, Palette::Amber);
    p.setPen(Stroke(Palette::White, 7));
    p.drawLine(QPointF(32, 15), QPointF(32, 36));
    Dot(p, Palette::White, QPointF(32, 47), 4.5);
}

void MessageOffline(QPainter& p)
{
    Disc(p, Palette::Grey);
    p.save();
    p.translate(32, 32);
    p.scale(0.7, 0.7);
    p.translate(-32, -36);
    WifiGlyph(p, Palette::White);
    p.restore();
    p.setPen(Stroke(Palette::Grey, 9));
    p.drawLine(QPointF(17, 17), QPointF(47, 47));
    p.setPen(Stroke(Palette::Red, 5));
    p.drawLine(QPointF(17, 17), QPointF(47, 47));
}

void HeaderWifiOnline(QPainter& p)
{
    WifiGlyph(p, Palette::White);
}

void HeaderWifiDisconnected(QPainter& p)
{
    WifiGlyph(p, QColor(255, 255, 255, 110));
    Dot(p, Palette::Red, QPointF(48, 46), 14);
    p.save();
    p.translate(48, 46);
    p.scale(0.3, 0.3);
    p.translate(-32, -32);
    CrossGlyph(p, Palette::White, 16, 14);
    p.restore();
}

void HeaderClose(QPainter& p)
{
    CrossGlyph(p, Palette::White, 5.5, 16);
}

void HeaderHelp(QPainter& p)
{
    p.setPen(Stroke(Palette::White, 4.5));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(32, 32), 27, 27);
    QuestionGlyph(p, Palette::White, 5.5);
}

void MessagesNone(QPainter& p)
{
    EnvelopeGlyph(p, Palette::White);
}

void MessagesNew(QPainter& p)
{
    EnvelopeGlyph(p, Palette::White);
    Dot(p, Palette::Red, QPointF(53, 15), 9);
}

void Avatar(QPainter& p)
{
    QPainterPath disc;
    disc.addEllipse(QPointF(32, 32), 30, 30);
    p.setClipPath(disc);
    p.fillRect(QRectF(0, 0, 64, 64), Palette::Mist);
    Dot(p, Palette::White, QPointF(32, 25), 11);
    p.setBrush(Palette::White);
    p.drawEllipse(QRectF(12, 39, 40, 34));
    p.setClipping(false);
}

void Logo(QPainter& p)
{
    QLinearGradient shade(0, 2, 64, 62);
    shade.setColorAt(0, Palette::Sky);
    shade.setColorAt(1, Palette::Navy);
    p.setPen(Qt::NoPen);
    p.setBrush(shade);
    p.drawRoundedRect(QRectF(2, 2, 60, 60), 14, 14);
    // A fixed-wing survey drone seen from above, over a ground track.
    p.setPen(Stroke(QColor(255, 255, 255, 120), 2.5));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(10, 30, 44, 24), 200 * 16, 140 * 16);
    const QPointF wing[] = {{32, 10}, {54, 36}, {32, 30}, {10, 36}};
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::White);
    p.drawPolygon(wing, 4);
    p.drawRoundedRect(QRectF(29.5, 14, 5, 20), 2.5, 2.5);
}

void HeaderBackground(QImage& image)
{
    QPainter p(&image);
    QLinearGradient across(0, 0, image.width(), 0);
    across.setColorAt(0, Palette::NavyDark);
    across.setColorAt(0.55, Palette::Navy);
    across.setColorAt(1, QColor(0x1a, 0x33, 0x58));
    p.fillRect(image.rect(), across);
    QLinearGradient down(0, 0, 0, image.height());
    down.setColorAt(0, QColor(255, 255, 255, 18));
    down.setColorAt(1, QColor(0, 0, 0, 30));
    p.fillRect(image.rect(), down);
    p.fillRect(QRect(0, image.height() - 1, image.width(), 1), QColor(0x2c, 0x5a, 0x8f));
}

// A button of a project row: a slate glyph at rest; under the mouse the glyph
// turns white on a disc of the button's colour.
Painting RowButton(void (*glyph)(QPainter&, const QColor&), const QColor& hoverColor, bool hovered)
{
    return [glyph, hoverColor, hovered](QPainter& p) {
        if (!hovered) {
            glyph(p, Palette::Slate);
            return;
        }
        Disc(p, hoverColor);
        p.translate(32, 32);
        p.scale(0.72, 0.72);
        p.translate(-32, -32);
        glyph(p, Palette::White);
    };
}

void CheckBoxEmpty(QPainter& p)
{
    p.setPen(QPen(Palette::Grey, 5));
    p.setBrush(Palette::White);
    p.drawRoundedRect(QRectF(6, 6, 52, 52), 10, 10);
}

void CheckBoxChecked(QPainter& p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(Palette::Blue);
    p.drawRoundedRect(QRectF(3.5, 3.5, 57, 57), 12, 12);
    CheckMark(p, Palette::White, 8);
}

void DownloadMark(QPainter& p)
{
    p.setPen(Stroke(Palette::Blue, 6));
    p.drawLine(QPointF(32, 8), QPointF(32, 40));
    StrokePolyline(p, Palette::Blue, 6, {{20, 29}, {32, 41}, {44, 29}});
    StrokePolyline(p, Palette::Blue, 6, {{10, 42}, {10, 54}, {54, 54}, {54, 42}});
}

void DoneMark(QPainter& p)
{
    Disc(p, Palette::Green);
    CheckMark(p, Palette::White, 7);
}

// The details page's way back: an arrow pointing left.
void BackArrow(QPainter& p)
{
    p.setPen(Stroke(Palette::Slate, 6));
    p.drawLine(QPointF(14, 32), QPointF(50, 32));
    StrokePolyline(p, Palette::Slate, 6, {{28, 18}, {14, 32}, {28, 46}});
}

void WarnQuestion(QPainter& p)
{
    Disc(p, Palette::Amber);
    QuestionGlyph(p, Palette::White, 6);
}

void ArrowDown(QPainter& p)
{
    ChevronGlyph(p, Palette::Slate, true);
}

void ArrowUp(QPainter& p)
{
    ChevronGlyph(p, Palette::Slate, false);
}

struct SIcon
{
    QString path;
    int size;
    Painting paint;
};

// The resting ("_nor") and hovered ("_hovpre") images of one row button.
void AddRowButton(std::vector<SIcon>& icons, const QString& stem, void (*glyph)(QPainter&, const QColor&),
                  const QColor& hoverColor)
{
    icons.push_back({stem + "_nor.png", 24, RowButton(glyph, hoverColor, false)});
    icons.push_back({stem + "_hovpre.png", 24, RowButton(glyph, hoverColor, true)});
}

std::vector<SIcon> Icons()
{
    const QString home = QStringLiteral("Normal/Home/");
    const QString projMgr = QStringLiteral("Normal/ProjMgr/");
    std::vector<SIcon> icons = {
        {home + "HomeFile_share_ok_ic.png", 48, MessageOk},
        {home + "HomeFile_share_no_ic.png", 48, MessageFailed},
        {home + "HomeFilebut_receive_ic.png", 48, MessageQuestion},
        {home + "HomeFile_receive_but_nor.png", 24, ReceiveButton},
        {home + "HomeFile_Refuse_but_nor.png", 24, RefuseButton},
        {home + "HomeFile_message_ic.png", 16, MessageMark},
        {QStringLiteral("Normal/userinfo/off_network_ico.png"), 48, MessageOffline},
        {QStringLiteral("Normal/Exclamation_mark.png"), 48, MessageExclamation},
        {home + "Home_WiFi_Online_ic.png", 24, HeaderWifiOnline},
        {home + "Home_WiFi_Disconnected_ic.png", 24, HeaderWifiDisconnected},
        {home + "Mymessage_Nonews_ic.png", 32, MessagesNone},
        {home + "Mymessage_news_ic.png", 32, MessagesNew},
        {home + "Home_close_ic.png", 24, HeaderClose},
        {home + "Home_help_ic.png", 24, HeaderHelp},
        {home + "Home_user_ic.png", 48, Avatar},
        {home + "app_vireoplan.png", 64, Launcher(Palette::Blue, PlanGlyph)},
        {home + "app_vireofly.png", 64, Launcher(Palette::Teal, FlyGlyph)},
        {home + "app_vireocheck.png", 64, Launcher(Palette::Green, CheckGlyph)},
        {home + "app_vireoprocess.png", 64, Launcher(Palette::Orange, ProcessGlyph)},
        {home + "app_vireomap.png", 64, Launcher(Palette::Cyan, MapGlyph)},
        {home + "app_vireomonitor.png", 64, Launcher(Palette::Indigo, MonitorGlyph)},
        {home + "app_projmanager.png", 64, Launcher(Palette::Amber, FolderGlyph)},
        {home + "app_maintain.png", 64, Launcher(Palette::Slate, WrenchGlyph)},
        {home + "app_3dviewer.png", 64, Launcher(Palette::Purple, CubeGlyph)},
        {home + "app_viewer.png", 64, Launcher(Palette::Sky, PictureGlyph)},
        {QStringLiteral("Normal/logo.png"), 128, Logo},
        {projMgr + "Check_box_nor.png", 16, CheckBoxEmpty},
        {projMgr + "Check_box_pre.png", 16, CheckBoxChecked},
        {projMgr + "download_ic.png", 16, DownloadMark},
        {projMgr + "yes_ic.png", 16, DoneMark},
        {projMgr + "warn_question_ic.png", 48, WarnQuestion},
        {projMgr + "arrow_down_btn_nor.png", 12, ArrowDown},
        {projMgr + "arrow_up_btn_nor.png", 12, ArrowUp},
        {projMgr + "back_btn_nor.png", 24, BackArrow},
        {projMgr + "details_downloaded.png", 64, Launcher(Palette::Green, DownloadedGlyph)},
    };
    // Side bar of the project manager, tiles like the launcher's.
    icons.push_back({projMgr + "side_share_ic.png", 32, Launcher(Palette::Blue, WhiteShareGlyph)});
    icons.push_back({projMgr + "side_assigned_ic.png", 32, Launcher(Palette::Teal, PersonGlyph)});
    icons.push_back({projMgr + "side_translist_ic.png", 32, Launcher(Palette::Indigo, TransferGlyph)});
    icons.push_back({projMgr + "side_home_ic.png", 32, Launcher(Palette::Slate, HomeGlyph)});
    AddRowButton(icons, projMgr + "share1_btn", ShareGlyph, Palette::Blue);
    AddRowButton(icons, projMgr + "delete1_btn", BinGlyph, Palette::Red);
    AddRowButton(icons, projMgr + "cloud_Download1_btn", CloudDownloadGlyph, Palette::Blue);
    AddRowButton(icons, projMgr + "infor_btn", InfoGlyph, Palette::Blue);
    AddRowButton(icons, projMgr + "open_btn", OpenFolderGlyph, Palette::Amber);
    AddRowButton(icons, projMgr + "send_btn", SendGlyph, Palette::Green);
    AddRowButton(icons, projMgr + "download_btn", TrayDownloadGlyph, Palette::Blue);
    AddRowButton(icons, projMgr + "message_btn", EnvelopeGlyph, Palette::Blue);
    return icons;
}

bool Save(const QImage& image, const QDir& outDir, const QString& relativePath)
{
    const QString path = outDir.filePath(relativePath);
    if (!QDir().mkpath(QFileInfo(path).path()) || !image.save(path, "PNG")) {
        QTextStream(stderr) << "cannot write " << path << '\n';
        return false;
    }
    QTextStream(stdout) << "wrote " << path << '\n';
    return true;
}

QImage Render(const SIcon& icon)
{
    QImage image(icon.size, icon.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(icon.size / 64.0, icon.size / 64.0);
    icon.paint(p);
    return image;
}

}  // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QDir outDir(QDir::cleanPath(argc > 1 ? QString::fromLocal8Bit(argv[1])
                                               : QStringLiteral(ICONPAINTER_DEFAULT_OUTPUT)));

    bool ok = true;
    for (const SIcon& icon : Icons())
        ok = Save(Render(icon), outDir, icon.path) && ok;

    QImage header(1280, 56, QImage::Format_RGB32);
    HeaderBackground(header);
    ok = Save(header, outDir, QStringLiteral("Normal/Home/Home_header_bg.png")) && ok;
    return ok ? 0 : 1;
}
