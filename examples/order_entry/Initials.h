// Pinyin initials of a name, as clerks type them to find it: "黄铜球阀" is "htqf".
#pragma once

#include <QString>

/// Letters and digits stand for themselves, in lower case; characters that the program's own words do not
/// contain are left out.
QString initialsOf(const QString& name);
