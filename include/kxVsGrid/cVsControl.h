// The definition of one grid column: what the control needs to know beyond what the grid engine stores.
//
//     auto price = std::make_shared<kxVsGrid::cVsControl>();
//     price->sName("单价");
//     price->iType(kxVsGrid::flexDTDouble);
//
// A plain holder of values: no behaviour but its defaults and the normalisation of three texts. The control
// reads a definition afresh at each use, so a host may keep a reference and change it at any time.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/Members.h"

namespace kxVsGrid {

class cVsControl {
  public:
    cVsControl() = default;

    /// Alignment of the column's cells.
    mEmflexAlign iColAlignment() const { return iColAlignment_; }
    void iColAlignment(mEmflexAlign value) { iColAlignment_ = value; }

    /// Data type of the column's values: how input is parsed and filled.
    mEmDataType iType() const { return iType_; }
    void iType(mEmDataType value) { iType_ = value; }

    /// The user may edit cells of this column.
    bool bIsEditable() const { return bIsEditable_; }
    void bIsEditable(bool value) { bIsEditable_ = value; }

    /// The column is shown; `ColHidden` of the control writes the opposite here.
    bool bIsVisible() const { return bIsVisible_; }
    void bIsVisible(bool value) { bIsVisible_ = value; }

    /// The column's field name, used in messages.
    const std::string& sName() const { return sName_; }
    void sName(std::string_view value) { sName_ = value; }

    /// Most characters (code points) that can be typed; 0 is no limit.
    std::int16_t iLimitLength() const { return iLimitLength_; }
    void iLimitLength(std::int16_t value) { iLimitLength_ = value; }

    /// The column offers help: its editor shows the help button.
    bool b是否提供帮助() const { return b是否提供帮助_; }
    void b是否提供帮助(bool value) { b是否提供帮助_ = value; }

    /// Which help is opened.
    gEmHelpType i帮助类型() const { return i帮助类型_; }
    void i帮助类型(gEmHelpType value) { i帮助类型_ = value; }

    /// The code that identifies the help, or the list of constants itself.
    const std::string& sHelp_Code() const { return sHelp_Code_; }
    void sHelp_Code(std::string_view value) { sHelp_Code_ = value; }

    /// Which half of a chosen or checked code/name pair the cell shows.
    gEmShowCodeName i帮助返回值显示类型() const { return i帮助返回值显示类型_; }
    void i帮助返回值显示类型(gEmShowCodeName value) { i帮助返回值显示类型_ = value; }

    /// 0 no rule, 1 must not be empty, 2 must not be zero.
    gEmNotAllowEmptyType i是否允许为空() const { return i是否允许为空_; }
    void i是否允许为空(gEmNotAllowEmptyType value) { i是否允许为空_ = value; }

    /// How typed text is checked: 0 not, 1 code, 2 date, 3 other, 4 date with half-day, 5 date and time.
    gEmJudgeType i字段有效性判断类型() const { return i字段有效性判断类型_; }
    void i字段有效性判断类型(gEmJudgeType value) { i字段有效性判断类型_ = value; }

    /// Name of the code field handed to the host with a code check.
    const std::string& s文本框对应编码字段() const { return s文本框对应编码字段_; }
    void s文本框对应编码字段(std::string_view value) { s文本框对应编码字段_ = value; }

    /// Name of the name field handed to the host with a code check.
    const std::string& s文本框对应名称字段() const { return s文本框对应名称字段_; }
    void s文本框对应名称字段(std::string_view value) { s文本框对应名称字段_ = value; }

    /// The query text handed to the host with a code check.
    const std::string& s有效性判断基础() const { return s有效性判断基础_; }
    void s有效性判断基础(std::string_view value) { s有效性判断基础_ = value; }

    /// Message shown when the check fails.
    const std::string& s错误提示信息() const { return s错误提示信息_; }
    void s错误提示信息(std::string_view value) { s错误提示信息_ = value; }

    /// Not 0: typed text is checked.
    std::int16_t i有效性判断() const { return i有效性判断_; }
    void i有效性判断(std::int16_t value) { i有效性判断_ = value; }

    /// The column is summed into the total row.
    bool b是否合计数据() const { return b是否合计数据_; }
    void b是否合计数据(bool value) { b是否合计数据_ = value; }

    /// The editor accepts several lines.
    bool b是否编辑多行() const { return b是否编辑多行_; }
    void b是否编辑多行(bool value) { b是否编辑多行_ = value; }

    /// Width of the help dialog in twips; 0 leaves it to the dialog.
    std::int32_t HelpWidth() const { return HelpWidth_; }
    void HelpWidth(std::int32_t value) { HelpWidth_ = value; }

    /// Height of the help dialog in twips; 0 leaves it to the dialog.
    std::int32_t HelpHeight() const { return HelpHeight_; }
    void HelpHeight(std::int32_t value) { HelpHeight_ = value; }

    /// The column has colours of its own.
    bool b是否设列颜色() const { return b是否设列颜色_; }
    void b是否设列颜色(bool value) { b是否设列颜色_ = value; }

    /// Text colour, used only when the column has colours of its own.
    double d列前景色() const { return d列前景色_; }
    void d列前景色(double value) { d列前景色_ = value; }

    /// Back colour, used likewise.
    double d列背景色() const { return d列背景色_; }
    void d列背景色(double value) { d列背景色_ = value; }

    /// Print flag, kept for the host.
    bool bIsPrint() const { return bIsPrint_; }
    void bIsPrint(bool value) { bIsPrint_ = value; }

    /// Where Enter goes from this column: empty or c the next editable cell, r one row down, or a target
    /// "row,column". Stored trimmed and in lower case; row becomes r, col becomes c.
    const std::string& sCellInput() const { return sCellInput_; }
    void sCellInput(std::string_view value);

    /// Default tag of new rows; stored trimmed. "[row,column]" refers to another cell.
    const std::string& sDefaultText_Code() const { return sDefaultText_Code_; }
    void sDefaultText_Code(std::string_view value);

    /// Default text of new rows; stored trimmed. "[row,column]" refers to another cell.
    const std::string& sDefaultText_Name() const { return sDefaultText_Name_; }
    void sDefaultText_Name(std::string_view value);

    /// All properties in the order of the interface, for pages, stores and documents that treat them alike.
    static std::span<const Member> members();
    /// A property by name; GridError for a name that is none.
    Variant Get(std::string_view name) const;
    void Put(std::string_view name, const Variant& value);

  private:
    mEmflexAlign iColAlignment_ = flexAlignLeftCenter;
    mEmDataType iType_ = flexDTString;
    bool b是否合计数据_ = false;  // beside the type: each write looks at both
    bool bIsEditable_ = true;
    bool bIsVisible_ = true;
    std::string sName_;
    std::int16_t iLimitLength_ = 0;
    bool b是否提供帮助_ = false;
    gEmHelpType i帮助类型_ = ih通用型;
    std::string sHelp_Code_;
    gEmShowCodeName i帮助返回值显示类型_ = iText记Code;
    gEmNotAllowEmptyType i是否允许为空_{};
    gEmJudgeType i字段有效性判断类型_{};
    std::string s文本框对应编码字段_;
    std::string s文本框对应名称字段_;
    std::string s有效性判断基础_;
    std::string s错误提示信息_;
    std::int16_t i有效性判断_ = 0;
    bool b是否编辑多行_ = false;
    std::int32_t HelpWidth_ = 0;
    std::int32_t HelpHeight_ = 0;
    bool b是否设列颜色_ = false;
    double d列前景色_ = 0;
    double d列背景色_ = 0;
    bool bIsPrint_ = true;
    std::string sCellInput_;
    std::string sDefaultText_Code_;
    std::string sDefaultText_Name_;
};
}  // namespace kxVsGrid
