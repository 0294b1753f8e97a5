// A picture on the card table that answers clicks: the base of the card images
// and the pile-place images. A click is a left-button press and release on the
// same image, as the player expects from a button; the front-most image under
// the mouse is the one that receives it. It is 50 x 75 pixels times the table's
// zoom, its picture painted at that zoom.
#pragma once

#include <QLabel>
#include <QPixmap>

namespace vorn::shell {

class BoardImage : public QLabel {
    Q_OBJECT
public:
    explicit BoardImage(QWidget* parent);

    qreal zoom() const { return zoom_; }
    void setZoom(qreal zoom);

signals:
    void clicked();

protected:
    // The picture at the given device pixel ratio and zoom. It is asked for when
    // the image is painted, so a picture is painted (once, into the picture
    // cache) only when the player is about to see it.
    virtual QPixmap art(qreal devicePixelRatio, qreal zoom) const = 0;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    qreal zoom_ = 1.0;
    bool pressed_ = false;
};

}  // namespace vorn::shell
