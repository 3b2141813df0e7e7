/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PICTURECHILD_H
#define PICTURECHILD_H

#include <QByteArray>
#include <QImage>
#include <QStringList>

/** Whose picture it is. Name and home are the bytes of the file. */
struct PictureOwner {
    QByteArray name;
    QByteArray home;
    uint uid = 0;
};

/**
 * The process that reads the picture of a user, so that a file that attacks the decoder harms
 * nothing else. It is ormel-users with arguments that help does not mention.
 */
namespace PictureChild
{
/** Arguments to start it with, for a picture of about @p size in pixels. */
QStringList arguments(const PictureOwner &user, const QSize &size);

/** Whether a process was started with such arguments. */
bool isWanted(int argc, const char *const *argv);

/**
 * Does its work: writes a byte when it is ready to look for a picture, and the picture if there is
 * one. The exit status of the process.
 */
int run(const char *const *argv);

/** The most bytes that it writes for a picture of about @p size. */
int longestOutput(const QSize &size);

/** The picture in @p output, which fits into @p size; null when there is none or the output is not valid. */
QImage picture(const QByteArray &output, const QSize &size);
}

#endif
