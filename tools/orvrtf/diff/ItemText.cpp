#include "ItemText.h"

#include "Words.h"

QVector<int> ItemText::words(const Model::Document& document, const Model::Flow& flow, Symbols* symbols)
{
    QVector<int> result;
    for (const Model::Item& item : flow)
        result += words(document, item, symbols);
    return result;
}

QVector<int> ItemText::words(const Model::Document& document, const Model::Item& item, Symbols* symbols)
{
    if (!item.table)
        return Words::numbers(document.paragraphs[std::size_t(item.paragraph)].text, symbols);
    QVector<int> result;
    for (const Model::Cell& cell : item.table->cells)
        result += words(document, cell.flow, symbols);
    return result;
}

QString ItemText::key(const Model::Flow& flow)
{
    QString key;
    for (const Model::Item& item : flow)
        key += QString::number(item.text) + QLatin1Char(' ');
    return key + QLatin1Char('\n');
}
