#include "ChineseTexts.h"

#include <string_view>

QString ChineseTexts::translate(const char*, const char* sourceText, const char*, int) const {
    static const struct {
        std::string_view english;
        const char16_t* chinese;
    } texts[] = {
        {"&Undo", u"撤消(&U)"},
        {"&Redo", u"重做(&R)"},
        {"Cu&t", u"剪切(&T)"},
        {"&Copy", u"复制(&C)"},
        {"&Paste", u"粘贴(&P)"},
        {"Delete", u"删除"},
        {"Select All", u"全选"},
        {"&Select All", u"全选(&S)"},
        {"&Step up", u"增加(&S)"},
        {"Step &down", u"减少(&D)"},
        {"OK", u"确定"},
        {"&OK", u"确定(&O)"},
        {"Cancel", u"取消"},
        {"&Cancel", u"取消(&C)"},
        {"&Yes", u"是(&Y)"},
        {"&No", u"否(&N)"},
        {"Close", u"关闭"},
        {"Open", u"打开"},
        {"Previous Month", u"上个月"},
        {"Next Month", u"下个月"},
    };
    for (const auto& text : texts)
        if (text.english == sourceText) return QString::fromUtf16(text.chinese);
    return {};
}
