/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "details.h"

#include "lefttoright.h"
#include "pagelayout.h"
#include "plaintext.h"

#include <KSqueezedTextLabel>

#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QToolTip>

namespace
{
/** How wide the details stay, in characters. */
constexpr int minCharacters = 40;

/** A label that cuts text short, with a tool tip that takes the text for what it is. Copied, it is whole. */
class LineLabel : public KSqueezedTextLabel
{
public:
    explicit LineLabel(QWidget *parent)
        : KSqueezedTextLabel(parent)
    {
        setTextElideMode(Qt::ElideMiddle);
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::ToolTip || !isSqueezed()) {
            return KSqueezedTextLabel::event(event);
        }
        const QPoint position = static_cast<const QHelpEvent *>(event)->globalPos();
        QToolTip::showText(position, PlainText::toRichText(fullText()), this);
        return true;
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (isSqueezed() && event->matches(QKeySequence::Copy)) {
            QGuiApplication::clipboard()->setText(fullText());
        } else {
            KSqueezedTextLabel::keyPressEvent(event);
        }
    }
};
}

Details::Details(int pictureSize, QWidget *parent)
    : ContentArea(parent)
{
    setMinimumWidth(minCharacters * fontMetrics().averageCharWidth());

    auto *content = new QWidget(this);
    m_picture = new QLabel(content);
    m_picture->setObjectName(QStringLiteral("picture"));
    m_picture->setFixedSize(pictureSize, pictureSize);
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setWordWrap(true);
    m_title = new LineLabel(content);
    m_title->setObjectName(QStringLiteral("title"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setAlignment(LeftToRight::lineStart());
    QFont font = m_title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    m_title->setFont(font);

    m_marksLayout = new QHBoxLayout;
    // The place of the marks stays when there are none.
    m_marksLayout->addStrut(fontMetrics().lineSpacing());
    m_marksLayout->addStretch();
    auto *names = new QVBoxLayout;
    names->addWidget(m_title);
    names->addLayout(m_marksLayout);
    names->addStretch();
    auto *head = new QHBoxLayout;
    head->addWidget(m_picture, 0, Qt::AlignTop);
    head->addLayout(names, 1);

    m_fieldsLayout = new QFormLayout;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins({});
    layout->addLayout(head);
    layout->addSpacing(layout->spacing());
    layout->addLayout(m_fieldsLayout);
    layout->addStretch();
    setWidget(content);
}

QSize Details::pictureSize() const
{
    return m_picture->size();
}

void Details::setPicture(const QPixmap &picture)
{
    m_picture->setFrameShape(QFrame::NoFrame);
    m_picture->setPixmap(picture);
    m_picture->setAccessibleName(QString());
}

void Details::setNoPicture(const QIcon &sign, const QString &text)
{
    m_picture->setFrameShape(QFrame::StyledPanel);
    m_picture->setText(text);
    m_picture->setAccessibleName(text);
    if (!sign.isNull()) {
        m_picture->setPixmap(sign.pixmap(pictureSize() / 2));
    }
}

void Details::setTitle(const QString &title)
{
    setText(*m_title, title);
}

QLabel *Details::addMark(const QString &text)
{
    auto *mark = new QLabel(text, widget());
    mark->setAlignment(LeftToRight::lineStart());
    mark->hide();
    m_marksLayout->insertWidget(m_marksLayout->count() - 1, mark);
    return mark;
}

QLabel *Details::addField(const QString &title)
{
    return addField(title, new LineLabel(widget()));
}

QLabel *Details::addLongField(const QString &title)
{
    auto *field = new QLabel(widget());
    field->setWordWrap(true);
    return addField(title, field);
}

QLabel *Details::addField(const QString &title, QLabel *field)
{
    field->setTextFormat(Qt::PlainText);
    field->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Reached with the tab key, too, so that it can be read out and copied.
    field->setFocusPolicy(Qt::StrongFocus);
    field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    field->setAlignment(Qt::AlignTop | LeftToRight::lineStart());
    PageLayout::addRow(m_fieldsLayout, title, field);
    setText(*field, QString());
    return field;
}

void Details::setText(QLabel &field, const QString &text)
{
    const QString shown = text.isEmpty() ? QStringLiteral(u"\u2013") : text;
    if (auto *squeezed = qobject_cast<KSqueezedTextLabel *>(&field)) {
        squeezed->setText(shown);
        squeezed->updateGeometry(); // it wants as much room as the new text takes
        squeezed->setAccessibleName(shown); // otherwise what is left of it is read out
    } else {
        field.setText(shown);
    }
}
