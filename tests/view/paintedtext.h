#ifndef PAINTEDTEXT_H
#define PAINTEDTEXT_H

#include "ORVPagePainter.h"

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>

/*! What the tests of pages share: the text that is painted on a page, and where. */
namespace viewtest {

/*! A piece of text on a page: where it begins, and its right end. */
struct Piece {
    QString text;
    double left;
    double right;
    double baseline;
};

/*! Records the text that is painted. */
class Recorder : public QPaintEngine {
public:
    Recorder() : QPaintEngine(AllFeatures) { }

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& state) override { m_transform = state.transform(); }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { }
    void drawPath(const QPainterPath&) override { }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override { }
    void drawTextItem(const QPointF& position, const QTextItem& item) override
    {
        const QPointF place = m_transform.map(position);
        if (!item.text().trimmed().isEmpty())
            pieces.append({item.text(), place.x(), place.x() + item.width(), place.y()});
    }

    QList<Piece> pieces;

private:
    QTransform m_transform;
};

/*! Paper with 96 pixels to the inch. */
class RecordedPaper : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return &recorder; }
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight: return 2000;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY: return 96;
        case PdmDepth: return 32;
        case PdmDevicePixelRatio: return 1;
        default: return 0;
        }
    }

    mutable Recorder recorder;
};

/*! The pieces of text on \a page of \a document, which is in stock form, without those that the page clips. */
inline QList<Piece> piecesOf(const QTextDocument& document, int page = 0)
{
    const ORVPagePainter pages(&document, ORVPageSetup(), 96);
    RecordedPaper paper;
    {
        QPainter painter(&paper);
        pages.paintPage(&painter, page);
    }
    QList<Piece> pieces;
    for (const Piece& piece : paper.recorder.pieces) {
        if (piece.baseline > 96 && piece.baseline < 960)
            pieces.append(piece);
    }
    return pieces;
}

inline QStringList textsOf(const QList<Piece>& pieces)
{
    QStringList texts;
    for (const Piece& piece : pieces)
        texts << piece.text;
    texts.sort();
    return texts;
}

/*! The piece with \a text; one far away where there is none. */
inline Piece pieceOf(const QList<Piece>& pieces, const QString& text)
{
    for (const Piece& piece : pieces) {
        if (piece.text == text)
            return piece;
    }
    return {QString(), -9999, -9999, -9999};
}

} // namespace viewtest

#endif
