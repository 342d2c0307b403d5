// A button beside the lines: a press leaves what is being typed in the open editor, Tab leads to it.
#pragma once

#include <QBoxLayout>
#include <QPushButton>

/// Adds one to the layout of `parent`; `act` is what QObject::connect takes.
template <class Parent, class Act>
void addQuietButton(QBoxLayout& layout, Parent& parent, const QString& name, const QString& caption,
                    Act act) {
    auto* button = new QPushButton(caption, &parent);
    button->setObjectName(name);
    button->setFocusPolicy(Qt::TabFocus);
    QObject::connect(button, &QPushButton::clicked, &parent, act);
    layout.addWidget(button);
}
