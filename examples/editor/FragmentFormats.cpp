#include "FragmentFormats.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QVector>

namespace {

struct Run {
    int from;
    int to;
    QTextCharFormat format;
};

/*! The runs of text between \a from and \a to, which may begin and end inside of one. */
QVector<Run> runsBetween(const QTextDocument& document, int from, int to)
{
    QVector<Run> runs;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const Run run = {qMax(from, fragment.position()),
                             qMin(to, fragment.position() + fragment.length()), fragment.charFormat()};
            if (run.from < run.to)
                runs << run;
        }
    }
    return runs;
}

} // namespace

void FragmentFormats::change(QTextDocument* document, int from, int to,
                             const std::function<void(QTextCharFormat*)>& change)
{
    // All of them first, since changes join and split the fragments.
    QVector<Run> runs = runsBetween(*document, from, to);
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (Run& run : runs) {
        change(&run.format);
        cursor.setPosition(run.from);
        cursor.setPosition(run.to, QTextCursor::KeepAnchor);
        cursor.setCharFormat(run.format);
    }
    cursor.endEditBlock();
}
