#include "Initials.h"

#include <QHash>

#include "SampleWords.h"

namespace {
// Every word has one initial for each of its characters.
void learn(QHash<QChar, QChar>& initials, const Word& word) {
    for (const char16_t *text = word.text, *initial = word.initials; *text && *initial; ++text, ++initial)
        if (*text > 0x7f) initials.emplace(QChar(*text), QChar(*initial));
}

QHash<QChar, QChar> learned() {
    QHash<QChar, QChar> initials;
    for (const GoodsFamily& family : goodsFamilies())
        for (const auto* words : {&family.materials, &family.things})
            for (const Word& word : *words) learn(initials, word);
    const CustomerWords& customers = customerWords();
    for (const CustomerWords::Town& town : customers.towns) learn(initials, town.name);
    for (const auto* words : {&customers.firms, &customers.trades, &customers.forms})
        for (const Word& word : *words) learn(initials, word);
    return initials;
}
}  // namespace

QString initialsOf(const QString& name) {
    static const QHash<QChar, QChar> initials = learned();
    QString result;
    for (const QChar c : name.normalized(QString::NormalizationForm_KC).toLower()) {
        if (c.unicode() <= 0x7f) {
            if (c.isLetterOrNumber()) result += c;
        } else if (const auto found = initials.constFind(c); found != initials.cend()) {
            result += *found;
        }
    }
    return result;
}
