// A window in whose code column goods are suggested, and the list that stands open there.
#pragma once

#include <QListView>
#include <stdexcept>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {

inline SuggestionList someGoods() {
    SuggestionList goods;
    goods.add({"100001", "一", "六角螺栓  M8×40"}, {"六角螺栓", "ljls"});
    goods.add({"100002", "二", "六角螺母  M8"}, {"六角螺母", "ljlm"});
    goods.add({"200001", "三", "无缝钢管  DN25"}, {"无缝钢管", "wfgg"});
    for (int i = 0; i < 40; ++i)
        goods.add({"3000" + std::to_string(10 + i), "", "平垫圈  " + std::to_string(i) + " 号"}, {"pdq"});
    return goods;
}

/// The list of the window; nothing before the first suggestions.
inline QListView* listOf(const QWidget& window) {
    return window.findChild<QListView*>(QStringLiteral("suggestions"));
}

struct SuggestingWindow : Window {
    SuggestingWindow() { grid().Options(Code).suggest(someGoods()); }

    QListView& list() {
        if (listOf(window) == nullptr) throw std::logic_error("there is no list");
        return *listOf(window);
    }
    bool listShown() { return listOf(window) != nullptr && list().isVisible(); }
    int rows() { return list().model()->rowCount(); }
    QString highlighted() { return list().currentIndex().data().toString(); }
    QPoint inRow(int row) { return list().visualRect(list().model()->index(row, 0)).center(); }
    /// Types into a cell of the code column that is not open yet.
    void suggestAt(std::int32_t row, const QString& text) {
        focusCell(row, Code);
        type(text);
        settle();
    }
};
}  // namespace kxVsGrid::qt::testing
