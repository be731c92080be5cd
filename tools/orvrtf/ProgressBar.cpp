#include "ProgressBar.h"

#include <QByteArray>

#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

const int usualColumns = 80;
const int maxBarColumns = 50;
const int minBarColumns = 5;

bool canRedraw()
{
    return ::isatty(STDERR_FILENO) == 1 && qgetenv("TERM") != "dumb";
}

int terminalColumns()
{
    struct winsize size = {};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usualColumns;
    return size.ws_col;
}

/*! A bar of \a columns columns, the brackets around it included. */
QByteArray bar(int done, int total, int columns)
{
    const int inside = columns - 2;
    const int filled = int(qint64(inside) * done / total);
    return '[' + QByteArray(filled, '#') + QByteArray(inside - filled, '.') + ']';
}

} // namespace

ProgressBar::ProgressBar(int total) : m_total(total), m_isTerminal(canRedraw()) { }

void ProgressBar::show(int done)
{
    if (!m_isTerminal)
        return;
    const QByteArray count = QByteArray::number(done) + '/' + QByteArray::number(m_total);
    // The last column stays free: a terminal may go on to the next line when it is written to.
    const int columns = qMin(terminalColumns() - int(count.size()) - 2, maxBarColumns);
    const QByteArray line = columns < minBarColumns ? count : bar(done, m_total, columns) + ' ' + count;
    std::fprintf(stderr, "\r%s\x1b[K", line.constData());
    std::fflush(stderr);
    m_isShown = true;
}

void ProgressBar::clear()
{
    if (!m_isShown)
        return;
    std::fprintf(stderr, "\r\x1b[K");
    std::fflush(stderr);
    m_isShown = false;
}
