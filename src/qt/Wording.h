// Words of the widget's own that nothing else settles; its boxes say what the dialogs say.
#pragma once

#include <QString>

#include "dialogs/Captions.h"

namespace kxVsGrid::qt::wording {

inline const QString Ok = QString::fromUtf8(dialogs::captions::Ok);
inline const QString Cancel = QString::fromUtf8(dialogs::captions::Cancel);
inline const QString Undo = QStringLiteral("撤销(&U)");
inline const QString Redo = QStringLiteral("重做(&R)");
inline const QString Cut = QStringLiteral("剪切(&T)");
inline const QString Copy = QStringLiteral("复制(&C)");
inline const QString Paste = QStringLiteral("粘贴(&P)");
inline const QString Delete = QStringLiteral("删除(&D)");
inline const QString SelectAll = QStringLiteral("全选(&A)");
inline const QString Grid = QStringLiteral("表格");
inline const QString Editor = QStringLiteral("单元格");
inline const QString Suggestions = QStringLiteral("建议");
inline const QString Find = QStringLiteral("查找");
inline const QString FindNext = QStringLiteral("下一个");
inline const QString FindPrevious = QStringLiteral("上一个");
inline const QString WholeCell = QStringLiteral("整格");
inline const QString MatchCase = QStringLiteral("区分大小写");
inline const QString ThisColumn = QStringLiteral("本列");
inline const QString NotFound = QStringLiteral("未找到");
inline const QString ReplaceWith = QStringLiteral("替换为");
inline const QString Replace = QStringLiteral("替换");
inline const QString ReplaceAll = QStringLiteral("全部替换");
inline const QString Close = QStringLiteral("关闭");
inline const QString Help = QStringLiteral("帮助");
}  // namespace kxVsGrid::qt::wording
