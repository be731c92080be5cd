#include "ORVMarkdownEmphasis_p.h"

#include <QtCore/QSet>

#include <vector>

/*! Matches the runs as readers do. */
class ORVMarkdownEmphasis::Matching {
public:
    Matching(const ORVMarkdownEmphasis& emphasis, bool symbolsArePunctuation)
        : m_emphasis(emphasis), m_symbolsArePunctuation(symbolsArePunctuation)
    {
    }

    void run();
    /*! Whether nothing around the delimiters of \a element keeps them from being some. */
    bool canHave(const Element& element) const
    {
        return canOpen(m_emphasis.m_runs.at(element.begin)) && canClose(m_emphasis.m_runs.at(element.end));
    }
    bool has(const Element& element) const
    {
        return m_found.contains(key(element.begin, element.end, element.length));
    }

private:
    struct Opener {
        int run;
        int left;
        bool canClose;
    };
    enum Side { Blank, Punctuation, Letter };

    static quint64 key(int begin, int end, int length)
    {
        // Qt's hash of a number mixes its halves, which must not have the same bits for that.
        return (quint64(begin) << 32) | (quint64(end - begin) << 2) | quint64(length);
    }
    Side sideOf(uint code) const;
    Side before(const Run& run) const;
    Side behind(const Run& run) const;
    bool canOpen(const Run& run) const;
    bool canClose(const Run& run) const;
    int opener(const Run& run, bool canOpen) const;
    int close(int index, const Run& run, bool canOpen);
    void add(int index);

    const ORVMarkdownEmphasis& m_emphasis;
    bool m_symbolsArePunctuation;
    std::vector<Opener> m_openers;
    // The number of openers in front of each link that is open.
    std::vector<size_t> m_bottoms;
    QSet<quint64> m_found;
};

ORVMarkdownEmphasis::Matching::Side ORVMarkdownEmphasis::Matching::sideOf(uint code) const
{
    if (QChar::isSpace(code))
        return Blank;
    const bool isAsciiSymbol = code < 0x80 && QChar::isSymbol(code);
    if (QChar::isPunct(code) || isAsciiSymbol)
        return Punctuation;
    // Some readers take all that is part of no word for punctuation, also soft hyphens and other invisible characters.
    const bool isOfWord = QChar::isLetterOrNumber(code) || QChar::isMark(code);
    return m_symbolsArePunctuation && !isOfWord ? Punctuation : Letter;
}

ORVMarkdownEmphasis::Matching::Side ORVMarkdownEmphasis::Matching::before(const Run& run) const
{
    if (run.position == 0)
        return Blank;
    const QString& text = m_emphasis.m_text;
    const QChar last = text.at(run.position - 1);
    if (last.isLowSurrogate() && run.position > 1 && text.at(run.position - 2).isHighSurrogate())
        return sideOf(QChar::surrogateToUcs4(text.at(run.position - 2), last));
    return sideOf(last.unicode());
}

ORVMarkdownEmphasis::Matching::Side ORVMarkdownEmphasis::Matching::behind(const Run& run) const
{
    const QString& text = m_emphasis.m_text;
    const int end = run.position + run.length;
    if (end == text.size())
        return Blank;
    const QChar first = text.at(end);
    if (first.isHighSurrogate() && end + 1 < text.size() && text.at(end + 1).isLowSurrogate())
        return sideOf(QChar::surrogateToUcs4(first, text.at(end + 1)));
    return sideOf(first.unicode());
}

bool ORVMarkdownEmphasis::Matching::canOpen(const Run& run) const
{
    const Side next = behind(run);
    return next != Blank && (next == Letter || before(run) != Letter);
}

bool ORVMarkdownEmphasis::Matching::canClose(const Run& run) const
{
    const Side last = before(run);
    return last != Blank && (last == Letter || behind(run) != Letter);
}

/*! The index of the opener that \a run closes, which could open as well; -1 for none. */
int ORVMarkdownEmphasis::Matching::opener(const Run& run, bool canOpen) const
{
    // What is meant to match is close by; a long search would only find what is not meant.
    const int farthest = 16;
    const int bottom = m_bottoms.empty() ? 0 : int(m_bottoms.back());
    const int last = int(m_openers.size()) - 1;
    for (int i = last; i >= bottom && last - i < farthest; --i) {
        const Opener& opener = m_openers[size_t(i)];
        const Run& other = m_emphasis.m_runs.at(opener.run);
        if (other.delimiter != run.delimiter)
            continue;
        if (run.delimiter == QLatin1Char('~')) {
            if (other.length == run.length)
                return i;
            continue;
        }
        const bool isBarred = (canOpen || opener.canClose) && (other.length + run.length) % 3 == 0
            && (other.length % 3 != 0 || run.length % 3 != 0);
        if (!isBarred)
            return i;
    }
    return -1;
}

/*! Lets the run \a index close what it can. Returns how many delimiters are left. */
int ORVMarkdownEmphasis::Matching::close(int index, const Run& run, bool canOpen)
{
    int left = run.length;
    while (left > 0) {
        const int found = opener(run, canOpen);
        if (found < 0)
            break;
        m_openers.resize(size_t(found) + 1);
        Opener& opener = m_openers.back();
        const int used = opener.left >= 2 && left >= 2 ? 2 : 1;
        m_found.insert(key(opener.run, index, used));
        opener.left -= used;
        left -= used;
        if (opener.left == 0)
            m_openers.pop_back();
    }
    return left;
}

void ORVMarkdownEmphasis::Matching::add(int index)
{
    const Run& run = m_emphasis.m_runs.at(index);
    const bool isOpener = canOpen(run);
    const bool isCloser = canClose(run);
    const int rest = isCloser ? close(index, run, isOpener) : run.length;
    if (rest > 0 && isOpener)
        m_openers.push_back({index, rest, isCloser});
}

void ORVMarkdownEmphasis::Matching::run()
{
    for (const int step : m_emphasis.m_steps) {
        if (step == BeginLink) {
            m_bottoms.push_back(m_openers.size());
        } else if (step == EndLink) {
            m_openers.resize(m_bottoms.back());
            m_bottoms.pop_back();
        } else {
            add(step);
        }
    }
}

void ORVMarkdownEmphasis::clear()
{
    m_runs.clear();
    m_elements.clear();
    m_open.clear();
    m_steps.clear();
}

void ORVMarkdownEmphasis::add(int element, QChar delimiter, int count, bool isBegin)
{
    const int position = int(m_text.size()) - count;
    if (!m_runs.isEmpty() && m_runs.last().delimiter == delimiter
        && m_runs.last().position + m_runs.last().length == position) {
        m_runs.last().length += count;
    } else {
        Run run;
        run.delimiter = delimiter;
        run.position = position;
        run.length = count;
        m_steps.append(int(m_runs.size()));
        m_runs.append(run);
    }
    const int index = int(m_runs.size()) - 1;
    if (isBegin) {
        m_open.append(int(m_elements.size()));
        Element begun;
        begun.number = element;
        begun.begin = index;
        begun.length = count;
        m_elements.append(begun);
    } else {
        m_elements[m_open.last()].end = index;
        m_open.removeLast();
    }
}

void ORVMarkdownEmphasis::beginLink()
{
    m_steps.append(BeginLink);
}

void ORVMarkdownEmphasis::endLink()
{
    m_steps.append(EndLink);
}

QVector<int> ORVMarkdownEmphasis::lost(bool symbolsArePunctuation) const
{
    QVector<int> result;
    Matching matching(*this, symbolsArePunctuation);
    for (const Element& element : m_elements) {
        if (!matching.canHave(element))
            result.append(element.number);
    }
    // These would take the delimiters of others, which are not to blame.
    if (!result.isEmpty())
        return result;
    matching.run();
    for (const Element& element : m_elements) {
        if (!matching.has(element))
            result.append(element.number);
    }
    return result;
}

/*! Newer readers count symbols as punctuation, older ones do not. */
QVector<int> ORVMarkdownEmphasis::lost() const
{
    return lost(false) + lost(true);
}
