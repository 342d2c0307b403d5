#include "GoodsEditor.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "Decimal.h"
#include "FocusedWheel.h"
#include "Initials.h"

using namespace Qt::StringLiterals;

namespace {
QString codeOf(const QString& typed) {
    return typed.normalized(QString::NormalizationForm_KC).trimmed();
}
}  // namespace

GoodsEditor::GoodsEditor(Catalogue& catalogue, const QString& code, QWidget* parent)
    : QDialog(parent),
      catalogue_(catalogue),
      code_(new QLineEdit(this)),
      name_(new QLineEdit(this)),
      initials_(new QLineEdit(this)),
      spec_(new QLineEdit(this)),
      unit_(new QComboBox(this)),
      price_(new QLineEdit(this)),
      message_(new QLabel(this)),
      new_(new QPushButton(u"新增(&N)"_s, this)) {
    setObjectName(u"goodsEditor"_s);
    layOut();
    // The proposal follows the name until the clerk has written initials of his own.
    connect(name_, &QLineEdit::textChanged, this, [this](const QString& name) {
        if (!initials_->isModified()) initials_->setText(initialsOf(name));
    });
    connect(code_, &QLineEdit::textChanged, this, &GoodsEditor::showWhetherNew);
    connect(new_, &QPushButton::clicked, this, &GoodsEditor::startNew);
    const std::optional<Goods> goods = code.isEmpty() ? std::nullopt : catalogue_.goods(code);
    if (goods) fillIn(*goods);
    showWhetherNew();
}

void GoodsEditor::fillIn(const Goods& goods) {
    changing_ = goods.code;
    code_->setText(goods.code);
    name_->setText(goods.name);
    initials_->setText(goods.pinyin);
    initials_->setModified(goods.pinyin != initialsOf(goods.name));
    spec_->setText(goods.spec);
    unit_->setCurrentText(goods.unit);
    price_->setText(QString::fromStdString(plainText(goods.price, PriceDecimals)));
    code_->selectAll();
}

void GoodsEditor::startNew() {
    changing_.clear();
    for (QLineEdit* field : {code_, name_, initials_, spec_, price_}) field->clear();
    initials_->setModified(false);
    unit_->setCurrentIndex(0);
    message_->hide();
    code_->setFocus();
    showWhetherNew();
}

bool GoodsEditor::isNew() const {
    return changing_.isEmpty() || codeOf(code_->text()) != changing_;
}

void GoodsEditor::showWhetherNew() {
    setWindowTitle(isNew() ? u"新增商品"_s : u"修改商品 "_s + changing_);
    new_->setVisible(!changing_.isEmpty());
}

void GoodsEditor::layOut() {
    code_->setObjectName(u"code"_s);
    code_->setMaxLength(20);
    name_->setObjectName(u"name"_s);
    name_->setMaxLength(50);
    initials_->setObjectName(u"initials"_s);
    initials_->setMaxLength(50);
    initials_->setPlaceholderText(u"拼音首字母"_s);
    spec_->setObjectName(u"spec"_s);
    spec_->setMaxLength(50);
    unit_->setObjectName(u"unit"_s);
    unit_->setEditable(true);
    FocusedWheel::keep(*unit_);
    unit_->lineEdit()->setMaxLength(10);
    unit_->addItems({u"个"_s, u"件"_s, u"套"_s, u"台"_s, u"米"_s, u"千克"_s, u"箱"_s});
    price_->setObjectName(u"price"_s);
    price_->setAlignment(Qt::AlignRight);
    message_->setObjectName(u"message"_s);
    message_->setTextFormat(Qt::PlainText);
    message_->setWordWrap(true);
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    message_->setStyleSheet(dark ? u"color: #ffb4ab"_s : u"color: #b3261e"_s);
    message_->hide();

    auto* buttons = new QDialogButtonBox(this);
    new_->setAutoDefault(false);
    buttons->addButton(new_, QDialogButtonBox::ResetRole);
    buttons->addButton(u"确定"_s, QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(u"取消"_s, QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &GoodsEditor::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* form = new QFormLayout(this);
    form->addRow(u"货号(&H)"_s, code_);
    form->addRow(u"品名(&M)"_s, name_);
    form->addRow(u"简码(&J)"_s, initials_);
    form->addRow(u"规格(&G)"_s, spec_);
    form->addRow(u"单位(&D)"_s, unit_);
    form->addRow(u"单价(&P)"_s, price_);
    form->addRow(message_);
    form->addRow(buttons);
    setMinimumWidth(320);
}

void GoodsEditor::accept() {
    const std::optional<Goods> goods = read();
    if (!goods) return;
    try {
        isNew() ? catalogue_.add(*goods) : catalogue_.change(*goods);
    } catch (const DatabaseError& error) {
        if (error.isDuplicate()) return refuse(code_, u"货号 %1 已经存在"_s.arg(goods->code));
        return refuse(code_, error.text());
    }
    stored_ = goods->code;
    QDialog::accept();
}

std::optional<Goods> GoodsEditor::read() {
    Goods goods;
    goods.code = codeOf(code_->text());
    goods.name = name_->text().trimmed();
    goods.pinyin = initials_->text().trimmed();
    goods.spec = spec_->text().trimmed();
    goods.unit = unit_->currentText().trimmed();
    const std::optional<Cents> price = scaledNumber(price_->text().trimmed().toStdString(), PriceDecimals);
    const auto missing = [this](QWidget* field, const QString& why) {
        refuse(field, why);
        return std::nullopt;
    };
    if (goods.code.isEmpty()) return missing(code_, u"请输入货号"_s);
    if (goods.code.contains(u' ')) return missing(code_, u"货号不能含有空格"_s);
    if (goods.name.isEmpty()) return missing(name_, u"请输入品名"_s);
    if (goods.unit.isEmpty()) return missing(unit_, u"请输入单位"_s);
    if (price_->text().trimmed().isEmpty()) return missing(price_, u"请输入单价"_s);
    if (!price || *price < 0) return missing(price_, u"单价不是有效的金额"_s);
    goods.price = *price;
    return goods;
}

void GoodsEditor::refuse(QWidget* field, const QString& why) {
    message_->setText(why);
    message_->show();
    adjustSize();
    field->setFocus();
    if (auto* line = qobject_cast<QLineEdit*>(field)) line->selectAll();
}
