#ifndef ORVFRAMES_P_H
#define ORVFRAMES_P_H

#include <QtCore/QList>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFrame>

/*! Frames of a document, tables among them. */
namespace ORVFrames {

/*! All frames of \a document but the root frame, each before those within it. */
inline QList<QTextFrame*> all(const QTextDocument* document)
{
    QList<QTextFrame*> frames = document->rootFrame()->childFrames();
    for (int i = 0; i < frames.size(); ++i)
        frames += frames.at(i)->childFrames();
    return frames;
}

} // namespace ORVFrames

#endif
