// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// GUI thread only.
ORXInterface::FileDialogHook s_hook;
QString s_lastDirectory;

QString withSuffix(const QString& path, const QString& suffix)
{
    if (path.isEmpty() || suffix.isEmpty() || !QFileInfo(path).suffix().isEmpty())
        return path;
    return path + QLatin1Char('.') + suffix;
}

QString runDialog(QFileDialog& dialog)
{
    if (s_lastDirectory.isEmpty())
        s_lastDirectory = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    dialog.setDirectory(s_lastDirectory);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    QString path = dialog.selectedFiles().constFirst();
    s_lastDirectory = QFileInfo(path).absolutePath();
    return path;
}

} // namespace

QString ORXInterface::getSaveFileName(QWidget* parent, const QString& title, const QString& filter,
                                      const QString& defaultSuffix)
{
    if (s_hook)
        return withSuffix(s_hook(SaveFile, title, filter), defaultSuffix);
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // Before the dialog's own question whether to replace a file.
    dialog.setDefaultSuffix(defaultSuffix);
    return runDialog(dialog);
}

QString ORXInterface::getOpenFileName(QWidget* parent, const QString& title, const QString& filter)
{
    if (s_hook)
        return s_hook(OpenFile, title, filter);
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return runDialog(dialog);
}

void ORXInterface::setFileDialogHook(FileDialogHook hook)
{
    s_hook = std::move(hook);
}
