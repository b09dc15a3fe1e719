// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QBasicTimer>
#include <QPointer>
#include <QString>
#include <QWidget>

// The pill with spinner and text of ZELCustomLoadingDialog: a child of the window it lies over,
// transparent to mouse and keyboard. Owned by that window.
class ZELLoadingOverlay : public QWidget
{
    Q_OBJECT
public:
    // `row` counts upwards from the lower edge when several signs share a window.
    ZELLoadingOverlay(QWidget* host, int row);

    void setText(const QString& text);
    int row() const { return m_row; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void place();
    QRect spinnerRect() const;

    QString m_text;
    int m_row;
    int m_angle = 0; // Degrees.
    QBasicTimer m_timer;
};
