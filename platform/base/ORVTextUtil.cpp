#include "ORVTextUtil.h"

#include "QtFontCompat_p.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>

#if defined(ORV_HAVE_FONTCONFIG)
#include <fontconfig/fontconfig.h>
#endif

#include <algorithm>
#include <mutex>

namespace {

/*! The weights of the styles of \a family, empty when it is not installed. Only with compat::hasGui(). */
QList<int> fontWeights(const QString& family)
{
    QList<int> weights;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    for (const QString& style : QFontDatabase::styles(family))
        weights.append(QFontDatabase::weight(family, style));
#else
    QFontDatabase database;
    for (const QString& style : database.styles(family))
        weights.append(database.weight(family, style));
#endif
    return weights;
}

/*!
    A cache of what is known about font families, by name. Documents name a few families again and again; the
    bound is for a document that names thousands.
*/
template <typename Value>
class FamilyCache {
public:
    bool find(const QString& family, Value* value) const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_values.constFind(family);
        if (found == m_values.constEnd())
            return false;
        *value = found.value();
        return true;
    }

    void insert(const QString& family, const Value& value)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_values.size() >= maxEntries)
            m_values.clear();
        m_values.insert(family, value);
    }

private:
    static const int maxEntries = 1000;
    mutable std::mutex m_mutex;
    QHash<QString, Value> m_values;
};

/*!
    Qt adds the foundry, as in "Arial [Monotype]", where two foundries have a family of the same name. The
    bare name selects either.
*/
QString withoutFoundry(const QString& family)
{
    const int foundry = int(family.lastIndexOf(QLatin1String(" [")));
    return foundry > 0 && family.endsWith(QLatin1Char(']')) ? family.left(foundry) : family;
}

/*! The member of \a families that is called \a name in upper or lower case, empty when there is none. */
QString installedSpelling(const QStringList& families, const QString& name)
{
    QString found;
    for (const QString& family : families) {
        const QString bare = withoutFoundry(family);
        if (bare == name)
            return name;
        if (found.isEmpty() && bare.compare(name, Qt::CaseInsensitive) == 0)
            found = bare;
    }
    return found;
}

QString firstInstalled(const QStringList& families, const QStringList& names)
{
    for (const QString& name : names) {
        QString family = installedSpelling(families, name);
        if (!family.isEmpty())
            return family;
    }
    return QString();
}

#if defined(ORV_HAVE_FONTCONFIG)
/*!
    The families that fontconfig strongly binds to \a name: those of equal metrics. Weakly bound families are
    what it would offer for any name.
*/
QStringList equivalentFamilies(const QString& name)
{
    QStringList families;
    FcPattern* pattern = FcPatternCreate();
    if (!pattern)
        return families;
    const QByteArray utf8 = name.toUtf8();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(utf8.constData()));
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcValue value;
    FcValueBinding binding;
    for (int i = 0; FcPatternGetWithBinding(pattern, FC_FAMILY, i, &value, &binding) == FcResultMatch; ++i) {
        if (binding != FcValueBindingWeak && value.type == FcTypeString)
            families.append(QString::fromUtf8(reinterpret_cast<const char*>(value.u.s)));
    }
    FcPatternDestroy(pattern);
    return families;
}

/*! Cached, because asking fontconfig takes a tenth of a millisecond or more. */
QStringList metricSubstitutes(const QString& name)
{
    static FamilyCache<QStringList> cache;
    QStringList families;
    if (!cache.find(name, &families)) {
        families = equivalentFamilies(name);
        cache.insert(name, families);
    }
    return families;
}
#else
QStringList metricSubstitutes(const QString&)
{
    return QStringList();
}
#endif

/*!
    The weights of \a family in ascending order. Only installed families are cached: the application may add a
    family at any time.
*/
QList<int> weightsOf(const QString& family)
{
    static FamilyCache<QList<int>> cache;
    QList<int> weights;
    if (!cache.find(family, &weights)) {
        weights = fontWeights(family);
        std::sort(weights.begin(), weights.end());
        if (!weights.isEmpty())
            cache.insert(family, weights);
    }
    return weights;
}

void removeRange(QTextDocument* document, int from, int to)
{
    QTextCursor range(document);
    range.setPosition(from);
    range.setPosition(to, QTextCursor::KeepAnchor);
    range.removeSelectedText();
}

/*!
    Removes a range that may span paragraphs. Qt then keeps the paragraph format of the last one, but not its
    character format, which its marker and new text have.
*/
void removeLeadingRange(QTextDocument* document, int from, int to)
{
    const QTextBlock kept = document->findBlock(to);
    const bool joinsBlocks = kept.position() > from;
    const QTextCharFormat format = kept.charFormat();
    removeRange(document, from, to);
    QTextCursor cursor(document);
    cursor.setPosition(from);
    if (joinsBlocks && cursor.atBlockStart())
        cursor.setBlockCharFormat(format);
}

} // namespace

QString ORVTextUtil::findBestFontFamily(const QString& name)
{
    if (name.isEmpty() || !compat::hasGui())
        return QString();
    const QStringList families = compat::fontFamilies();
    const QString family = firstInstalled(families, QStringList(name) + QFont::substitutes(name));
    return family.isEmpty() ? firstInstalled(families, metricSubstitutes(name)) : family;
}

int ORVTextUtil::defaultFontWeight(const QString& family, int fallback)
{
    if (family.isEmpty() || !compat::hasGui())
        return fallback;
    const QList<int> weights = weightsOf(family);
    const QList<int>::const_iterator above =
        std::upper_bound(weights.constBegin(), weights.constEnd(), fallback);
    if (above != weights.constBegin())
        return *(above - 1);
    return weights.isEmpty() ? fallback : weights.first();
}

void ORVTextUtil::trim(QTextCursor& cursor)
{
    if (cursor.isNull() || !cursor.hasSelection())
        return;
    QTextDocument* document = cursor.document();
    const int start = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    int last = end;
    while (last > start && document->characterAt(last - 1).isSpace())
        --last;
    int first = start;
    while (first < last && document->characterAt(first).isSpace())
        ++first;

    QTextCursor edit(document);
    edit.beginEditBlock();
    if (last < end)
        removeRange(document, last, end);
    if (first > start)
        removeLeadingRange(document, start, first);
    edit.endEditBlock();
}

QString ORVTextUtil::trimLeadingSpaces(const QString& text)
{
    int start = 0;
    while (start < text.size() && text.at(start).isSpace())
        ++start;
    return text.mid(start);
}
