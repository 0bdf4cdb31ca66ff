#include "ScrolledForm.h"

QScrollArea* scrolled(QWidget* form, QWidget* parent) {
    auto* scroll = new QScrollArea(parent);
    scroll->setWidget(form);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->viewport()->setAutoFillBackground(false);
    form->setAutoFillBackground(false);
    return scroll;
}
