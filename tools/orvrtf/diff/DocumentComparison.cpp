#include "DocumentComparison.h"

#include "DifferenceCollector.h"
#include "DocumentFacts.h"
#include "StoryComparison.h"

Differences DocumentComparison::compare(const QTextDocument& before, const QTextDocument& after,
                                        const Scope& scope)
{
    DifferenceCollector collector;
    Symbols symbols;
    QStringList changes = DocumentFacts::textChanges(before, after);
    if (scope.hasPages)
        changes += Facts::changes(DocumentFacts::ofPage(before), DocumentFacts::ofPage(after));
    for (const QString& change : qAsConst(changes))
        collector.addChanges(Place(), 0, {change});
    StoryComparison(before, after, scope.hasLanguages, &symbols, &collector).run();
    return collector.take();
}
