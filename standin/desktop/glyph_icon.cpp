#include "standin/desktop/glyph_icon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <utility>

namespace standin {
namespace {

/// The glyphs are drawn on a field of this size.
constexpr qreal kField = 32;
constexpr qreal kLineWidth = 2;

void drawFolder(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{4, 26}, {4, 7}, {12, 7}, {15, 10}, {26, 10}, {26, 14}}));
    painter.drawPolygon(QPolygonF({{4, 26}, {9, 14}, {30, 14}, {26, 26}}));
}

void drawClock(QPainter& painter) {
    painter.drawEllipse(QRectF(5, 5, 22, 22));
    painter.drawPolyline(QPolygonF({{16, 9}, {16, 16}, {21, 19}}));
}

void drawDisk(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{5, 5}, {23, 5}, {27, 9}, {27, 27}, {5, 27}}));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(11, 5, 10, 7));
    painter.drawRect(QRectF(10, 17, 12, 10));
}

void drawPen(QPainter& painter, const QColor& ink) {
    painter.setBrush(ink);
    painter.drawPolygon(QPolygonF({{16, 29}, {17, 25}, {27, 15}, {30, 18}, {20, 28}}));
}

/// Back; mirrored it is forth.
void drawTurn(QPainter& painter) {
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{12, 6}, {6, 12}, {12, 18}}));
    QPainterPath way(QPointF(6, 12));
    way.lineTo(19, 12);
    way.cubicTo(29, 12, 29, 26, 19, 26);
    way.lineTo(12, 26);
    painter.drawPath(way);
}

class GlyphEngine : public QIconEngine {
public:
    explicit GlyphEngine(Glyph glyph) : glyph_(glyph) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const QPalette::ColorGroup group =
            mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor& ink = palette.color(group, QPalette::ButtonText);
        QColor fill = palette.color(group, QPalette::Highlight);
        fill.setAlphaF(0.35);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(place.topLeft());
        painter->scale(place.width() / kField, place.height() / kField);
        painter->setPen(QPen(ink, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(fill);
        draw(*painter, ink);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new GlyphEngine(glyph_); }

private:
    void draw(QPainter& painter, const QColor& ink) const {
        switch (glyph_) {
            case Glyph::Open: return drawFolder(painter);
            case Glyph::Recent: return drawClock(painter);
            case Glyph::Save: return drawDisk(painter);
            case Glyph::SaveAs: drawDisk(painter); return drawPen(painter, ink);
            case Glyph::Redo:
                painter.translate(kField, 0);
                painter.scale(-1, 1);
                return drawTurn(painter);
            case Glyph::Undo: return drawTurn(painter);
        }
    }

    Glyph glyph_;
};

}  // namespace

QIcon glyphIcon(Glyph glyph) { return QIcon(new GlyphEngine(glyph)); }  // the icon's

}  // namespace standin
