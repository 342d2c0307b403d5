// The few texts that Qt's own widgets bring along (context menus of text fields, ...), for machines without
// Qt's translations.
#pragma once

#include <QTranslator>

class ChineseTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;
    QString translate(const char* context, const char* sourceText, const char* disambiguation = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return false; }
};
