// Pinyin initials of a name, as clerks type them to find it: "黄铜球阀" is "htqf".
#pragma once

#include <QString>

/// Letters and digits stand for themselves, in lower case; of Chinese characters with several readings the most
/// usual one counts; anything else is left out.
QString initialsOf(const QString& name);
