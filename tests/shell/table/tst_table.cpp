// The card table: the pictures of the cards and pile places, and what a screen
// reader is told about them.

#include "shell/table/card_art.h"
#include "support/game.h"

class TableTest : public QObject {
    Q_OBJECT
private slots:
    // Painted at the pixel ratio of the screen, so they stay crisp on HiDPI
    // screens; every card has a face of its own; Image9 has its own picture.
    // At a zoom they are painted afresh at its size, pixel for pixel what a
    // screen of that ratio shows, never a picture scaled up.
    void pictures() {
        QSet<QByteArray> faces;
        for (int suit = 1; suit <= 4; ++suit)
            for (int rank = 1; rank <= 13; ++rank) {
                const QPixmap face = shell::cardFace(suit, rank, 2.0);
                QCOMPARE(face.size(), QSize(100, 150));
                QCOMPARE(face.deviceIndependentSize(), QSizeF(50, 75));
                const QImage image = face.toImage();
                faces.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
            }
        QCOMPARE(faces.size(), 52);
        QCOMPARE(shell::pilePicture(9, 2.0).size(), QSize(100, 150));
        QCOMPARE(shell::pilePicture(1, 1.0).toImage(), shell::pilePicture(10, 1.0).toImage());
        const QPixmap zoomed = shell::cardFace(3, 12, 1.0, 1.5);
        QVERIFY(zoomed.size() == QSize(75, 113) && shell::cardFace(3, 12, 2.0, 1.5).size() == QSize(150, 225));
        QImage hidpi = shell::cardFace(3, 12, 2.0).toImage();
        hidpi.setDevicePixelRatio(1.0);
        QCOMPARE(shell::cardFace(3, 12, 1.0, 2.0).toImage(), hidpi);
        QVERIFY(shell::pilePicture(1, 1.0).toImage() != shell::pilePicture(9, 1.0).toImage());
    }

    // The pictures a worker thread paints ahead while the window starts are the
    // very ones the window would paint, taken over at once at their ratio; a
    // picture at another ratio does not wait for the worker.
    void preparedPictures() {
        const qreal ratio = 1.25;  // painted by no other case
        shell::preparePictures(ratio);
        QVERIFY(shell::preparingPictures());
        QCOMPARE(shell::cardFace(1, 1, 3.0).toImage(), shell::paintCardFace(1, 1, 3.0));
        QVERIFY(shell::preparingPictures());
        QCOMPARE(shell::cardFace(2, 5, ratio).devicePixelRatio(), ratio);
        QVERIFY(!shell::preparingPictures());
        for (int suit = 1; suit <= 4; ++suit)
            for (int rank = 1; rank <= 13; ++rank)
                QCOMPARE(shell::cardFace(suit, rank, ratio).toImage(), shell::paintCardFace(suit, rank, ratio));
        for (int image = 1; image <= 11; ++image)
            QCOMPARE(shell::pilePicture(image, ratio).toImage(), shell::paintPilePicture(image, ratio));
    }

    // Cards and pile places are buttons a screen reader can press, named in the
    // language in force, found where the zoomed table shows them; the selected
    // card says so and shows its mark; after a move, an undo or a redo the
    // cells it touched are announced.
    void screenReaders() {
        Game g(deals({winnablePlace}));
        g.trigger("ig1");
        g.zoomTo(150);
        auto iface = [](QObject* o) { return QAccessible::queryAccessibleInterface(o); };
        QAccessibleInterface* two = iface(g.card({1, 2}));
        QCOMPARE(two->role(), QAccessible::Button);
        const Spot at = g.board().spot({1, 2});
        const QRect shown = g.scale().image(at.left, at.top);
        QCOMPARE(two->rect(), QRect(g.form->boardView()->mapToGlobal(shown.topLeft()), QSize(75, 113)));
        QCOMPARE(iface(g.pile(9))->role(), QAccessible::Button);
        const QImage plain = g.card({1, 2})->grab().toImage();
        QStringList said;
        auto hear = [&] {
            two->actionInterface()->doAction(QAccessibleActionInterface::pressAction());  // selects the 2
            QVERIFY(two->state().selected && g.board().isSelected({1, 2}));
            QVERIFY(g.card({1, 2})->grab().toImage() != plain);
            said << two->text(QAccessible::Name) << two->text(QAccessible::Description)
                 << iface(g.card({4, 12}))->text(QAccessible::Name) << iface(g.pile(9))->text(QAccessible::Name);
        };
        hear();
        g.click({1, 1});
        auto* live = g.form->boardView()->findChild<QLabel*>("announcement");
        said << iface(live)->text(QAccessible::Name);
        g.trigger("ig8");
        g.trigger("undo");
        hear();
        said << iface(live)->text(QAccessible::Name);
        QCOMPARE(said, QStringList({"2 червей", "выбрана", "дама треф", "пустое место",
                                    "ряд 1, столбец 1: пусто; ряд 1, столбец 6: туз червей, 2 червей", "2 of hearts",
                                    "selected", "queen of clubs", "empty place",
                                    "row 1, column 1: 2 of hearts; row 1, column 6: ace of hearts"}));
    }
};

QTEST_MAIN(TableTest)
#include "tst_table.moc"
