#include "Icons.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>

namespace {

const int Size = 20;
// More pixels than that, so that the icons are sharp on fine screens as well.
const int PixelRatio = 2;

/*! A transparent square of Size; its painter draws in the colour of the texts on buttons. */
class Canvas {
public:
    Canvas() : m_pixmap(Size * PixelRatio, Size * PixelRatio)
    {
        m_pixmap.setDevicePixelRatio(PixelRatio);
        m_pixmap.fill(Qt::transparent);
        m_painter.begin(&m_pixmap);
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setPen(QPen(QGuiApplication::palette().color(QPalette::ButtonText), 1.5));
    }

    QPainter* operator->() { return &m_painter; }

    void drawLetter(const QRectF& area, const QString& letter, int pixelSize,
                    void (QFont::*style)(bool) = nullptr)
    {
        QFont font = QGuiApplication::font();
        font.setPixelSize(pixelSize);
        if (style)
            (font.*style)(true);
        m_painter.setFont(font);
        m_painter.drawText(area, Qt::AlignCenter, letter);
    }

    QIcon icon()
    {
        m_painter.end();
        return QIcon(m_pixmap);
    }

private:
    QPixmap m_pixmap;
    QPainter m_painter;
};

const QRectF Everything(0, 0, Size, Size);

QIcon letterIcon(const QString& text, void (QFont::*style)(bool))
{
    Canvas canvas;
    canvas.drawLetter(Everything, text, 16, style);
    return canvas.icon();
}

/*! Three lines of text with what \a drawMarker draws in front of each, given the line's number and middle. */
template <typename DrawMarker>
QIcon listIcon(DrawMarker drawMarker)
{
    Canvas canvas;
    for (int i = 0; i < 3; ++i) {
        const qreal y = 4 + 6 * i;
        canvas->drawLine(QPointF(8, y), QPointF(18, y));
        drawMarker(canvas, i, y);
    }
    return canvas.icon();
}

} // namespace

QIcon Icons::bold()
{
    return letterIcon(QStringLiteral("B"), &QFont::setBold);
}

QIcon Icons::italic()
{
    return letterIcon(QStringLiteral("I"), &QFont::setItalic);
}

QIcon Icons::underline()
{
    return letterIcon(QStringLiteral("U"), &QFont::setUnderline);
}

QIcon Icons::color(const QColor& color)
{
    Canvas canvas;
    canvas.drawLetter(QRectF(0, 0, Size, 15), QStringLiteral("A"), 14);
    canvas->fillRect(QRectF(3, 15, 14, 4), color);
    return canvas.icon();
}

QIcon Icons::alignment(Qt::Alignment alignment)
{
    const qreal widths[] = {16, 10, 16, 8};
    Canvas canvas;
    for (int i = 0; i < 4; ++i) {
        const qreal width = alignment & Qt::AlignJustify ? 16 : widths[i];
        const qreal room = 16 - width;
        const qreal left = 2
            + (alignment & Qt::AlignRight         ? room
                   : alignment & Qt::AlignHCenter ? room / 2
                                                  : 0);
        canvas->drawLine(QPointF(left, 4 + 4 * i), QPointF(left + width, 4 + 4 * i));
    }
    return canvas.icon();
}

QIcon Icons::bulletList()
{
    return listIcon([](Canvas& canvas, int, qreal y) {
        canvas->setBrush(canvas->pen().color());
        canvas->drawEllipse(QPointF(3.5, y), 1, 1);
    });
}

QIcon Icons::numberedList()
{
    return listIcon([](Canvas& canvas, int i, qreal y) {
        canvas.drawLetter(QRectF(0, y - 4, 7, 8), QString::number(i + 1), 8);
    });
}

QIcon Icons::table()
{
    Canvas canvas;
    canvas->drawRect(QRectF(2, 3, 16, 14));
    canvas->drawLine(QPointF(10, 3), QPointF(10, 17));
    canvas->drawLine(QPointF(2, 7.5), QPointF(18, 7.5));
    canvas->drawLine(QPointF(2, 12), QPointF(18, 12));
    return canvas.icon();
}

QIcon Icons::picture()
{
    Canvas canvas;
    canvas->drawRect(QRectF(2, 3, 16, 14));
    canvas->drawEllipse(QPointF(13.5, 7.5), 1.5, 1.5);
    const QPointF mountains[] = {{3, 15}, {8, 8}, {12, 13}, {14, 11}, {17, 15}};
    canvas->drawPolyline(mountains, 5);
    return canvas.icon();
}
