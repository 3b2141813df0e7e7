/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "fuzzing.h"
#include "iconselectwidget_p.h"

#include <UserIconDialog>

#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImageReader>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>

using Fuzzing::require;

// An input is a whole picture file of any format.

namespace
{
/** Larger pictures, up to the limit of the dialog, only take longer. */
constexpr qint64 mostPixels = 1 << 22;
constexpr qint64 mostPixelsOfDialog = 1 << 28;

/** Counters that the engine treats like branches, since it does not see those of the decoders. */
#ifdef BUILD_FUZZERS
__attribute__((section("__libfuzzer_extra_counters")))
#endif
uint8_t outcomes[1 << 12];

QString picturePath()
{
    return QDir::tempPath() + QLatin1String("/picture");
}

/** How many pixels the file claims to have. */
qint64 claimedPixels()
{
    const QSize size = QImageReader(picturePath()).size();
    return qint64(size.width()) * size.height();
}

template<typename Widget>
Widget *part(const UserIconDialog &dialog, const char *name)
{
    auto *widget = dialog.findChild<Widget *>(QString::fromLatin1(name));
    require(widget, QLatin1String("The dialog has a ") + QLatin1String(name));
    return widget;
}

/** Whether one side of a square in an image of the size @p image differs from the other only by rounding. */
bool isLargestSquare(const QSize &square, const QSize &image, const IconSelectWidget &widget)
{
    const QRect shown = widget.imageRect();
    const double scale = std::min(double(shown.width()) / image.width(), double(shown.height()) / image.height());
    const int side = std::min(shown.width(), shown.height());
    return square == QSize(int(side / scale), int(side / scale));
}

void checkSelection(const UserIconDialog &dialog, const QImage &image)
{
    const auto *widget = dialog.findChild<IconSelectWidget *>();
    const QPixmap selected = dialog.selectedPixmap();
    const bool isShown = !image.isNull() && !widget->imageRect().isEmpty();
    require(selected.isNull() == !isShown, QStringLiteral("There is a selection where there is a picture"));
    require(!isShown || isLargestSquare(selected.size(), image.size(), *widget),
            QStringLiteral("A new picture has its largest square selected"));
}

/** Tells the engine files apart whose decoders gave different results. */
void countOutcome(const QImage &image)
{
    QImageReader reader(picturePath());
    const uint format = qHash(reader.format()) ^ qHash(reader.subType());
    reader.read();
    const uint kind = 31 * uint(image.format()) + uint(reader.error());
    const uint size = 7 * uint(std::log2(image.width() + 1)) + uint(std::log2(image.height() + 1));
    outcomes[(format + 1009 * kind + 53 * size) % std::size(outcomes)] = 1;
}

/** What the dialog shows after reading the file, in its own format. Pixels that a decoder leaves out are empty. */
QImage shownImage()
{
    if (claimedPixels() > mostPixelsOfDialog) {
        return {};
    }
    QImage image(picturePath());
    image.fill(0);
    return QImageReader(picturePath()).read(&image) ? image : QImage();
}

/** Passes @p image through the clipboard, as other programs do. */
void paste(const UserIconDialog &dialog, const QImage &image)
{
    QGuiApplication::clipboard()->setImage(image);
    part<QToolButton>(dialog, "clipboardButton")->click();
}

/** Whether @p shown looks like @p file, with transparent or black pixels where its colour table is too short. */
bool hasPixelsOf(const QImage &shown, const QImage &file)
{
    if (file.pixelFormat().colorModel() != QPixelFormat::Indexed) {
        return shown == file;
    }
    const QRgb missing = file.hasAlphaChannel() ? qRgba(0, 0, 0, 0) : qRgb(0, 0, 0);
    for (int y = 0; y < file.height(); ++y) {
        for (int x = 0; x < file.width(); ++x) {
            const int number = file.pixelIndex(x, y);
            if (shown.pixel(x, y) != (number < file.colorCount() ? file.color(number) : missing)) {
                return false;
            }
        }
    }
    return shown.format() == file.format();
}
}

/** Stands in for Qt's dialog, which would ask. */
QString QFileDialog::getOpenFileName(QWidget * /*parent*/,
                                     const QString & /*caption*/,
                                     const QString & /*directory*/,
                                     const QString & /*filter*/,
                                     QString * /*selectedFilter*/,
                                     Options /*options*/)
{
    return picturePath();
}

void Target::prepare()
{
}

void Target::run(const QByteArray &input)
{
    QFile file(picturePath());
    require(file.open(QIODevice::WriteOnly) && file.write(input) == input.size(), file.errorString());
    file.close();
    const qint64 pixels = claimedPixels();
    if (pixels > mostPixels && pixels <= mostPixelsOfDialog) {
        return;
    }

    static UserIconDialog dialog; // constructing one takes longer than showing a picture
    dialog.show();
    part<QToolButton>(dialog, "fileButton")->click();
    const QImage &image = dialog.findChild<IconSelectWidget *>()->image();
    if (qint64(image.width()) * image.height() > mostPixels) {
        return; // a GIF, whose size is not known in advance
    }
    require(hasPixelsOf(image, shownImage()), QStringLiteral("The dialog shows what is in the file"));
    require(part<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->isEnabled(),
            QStringLiteral("Ok is enabled"));
    checkSelection(dialog, image);
    dialog.findChild<IconSelectWidget *>()->grab();
    countOutcome(image);

    const QSize size = image.size();
    for (const char *button : {"rotateClockwiseButton", "horizontalMirrorButton", "verticalMirrorButton"}) {
        part<QToolButton>(dialog, button)->click();
        checkSelection(dialog, image);
    }
    require(image.size() == size.transposed(), QStringLiteral("A turned picture lies on its side"));
    part<QToolButton>(dialog, "rotateCounterClockwiseButton")->click();
    require(image.size() == size, QStringLiteral("A picture turned back stands again"));

    const QImage original = shownImage();
    paste(dialog, original);
    require(original.isNull() || hasPixelsOf(image, original), QStringLiteral("The dialog shows what is pasted"));
    checkSelection(dialog, image);

    dialog.setPixmap(QPixmap::fromImage(original));
    checkSelection(dialog, image);
}
