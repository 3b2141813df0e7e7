/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

/** Runs a target without a fuzzing engine, once for each file of the given directory. */
int main(int argc, char *argv[])
{
    LLVMFuzzerInitialize(&argc, &argv);
    if (argc != 2) {
        fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return 2;
    }
    const QFileInfoList inputs = QDir(QFile::decodeName(argv[1])).entryInfoList(QDir::Files);
    for (const QFileInfo &input : inputs) {
        QFile file(input.absoluteFilePath());
        if (!file.open(QIODevice::ReadOnly)) {
            fprintf(stderr, "cannot read %s\n", qPrintable(file.fileName()));
            return 1;
        }
        printf("%s\n", qPrintable(input.fileName()));
        fflush(stdout);
        const QByteArray content = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(content.constData()),
                               static_cast<size_t>(content.size()));
    }
    return inputs.isEmpty() ? 1 : 0;
}
