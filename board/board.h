// The game itself: the state of the card table and every routine that changes it.
//
// The board keeps the main window's member table under its own names. It never
// shows anything: each routine returns a Reaction that tells the window which
// message to show (the window decides whether the Messages switch lets it) and
// whether the game has just been found won.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "geometry.h"
#include "grid.h"
#include "random.h"

namespace vorn {

// A table indexed like the game's own: (suit 1..4, rank 1..13).
template <class T>
class Table {
public:
    T& operator()(int suit, int rank) { return cells_[index(suit, rank)]; }
    const T& operator()(int suit, int rank) const { return cells_[index(suit, rank)]; }
    friend bool operator==(const Table&, const Table&) = default;

private:
    static size_t index(int suit, int rank) {
        return static_cast<size_t>((suit - 1) * kRanks + (rank - 1));
    }
    std::array<T, kSuits * kRanks> cells_{};
};

// A card, or a reference to a card image: suit 0 means "no card" (an empty reference).
struct Card {
    int16_t suit = 0;
    int16_t rank = 0;
    bool empty() const { return suit == 0; }
    friend bool operator==(const Card&, const Card&) = default;
};

enum class Message : uint8_t {
    None,
    WrongMove,     // messhod: "Неправильний ход." / "Wrong step."      (gated by Messages)
    NewGameFirst,  // messnov: "Выберите пункт меню [Новая игра]"      (always shown)
    CannotSelect,  // messkart: "Эту карту нельзя выбрать."              (gated by Messages)
};

struct Reaction {
    Message message = Message::None;
    bool won = false;    // konec found all four kings home: show the end-of-game window
    bool moved = false;  // at least one card changed place
    bool gated() const { return message == Message::WrongMove || message == Message::CannotSelect; }
    friend bool operator==(const Reaction&, const Reaction&) = default;
};

// What a click at a point of the board reaches: the front-most card whose image
// contains the point, else a pile place that no card covers there, else nothing
// (the frames and the green cloth take no clicks).
struct Hit {
    enum class Kind : uint8_t { Nothing, Card, Pile };
    Kind kind = Kind::Nothing;
    Card card{};
    int pile = 0;  // 1..11 for Image1..Image11
    friend bool operator==(const Hit&, const Hit&) = default;
};

// What one cell of the grid shows.
struct CellContents {
    Card base{};         // the card lying at the row Top, if any
    Card front{};        // the front-most card lying on it, if any
    int8_t stacked = 0;  // how many cards lie on it
    // The card a click on the cell's face reaches: the front card, else the base.
    Card visible() const { return stacked ? front : base; }
};
using GridContents = std::array<CellContents, kCellCount>;  // indexed by Cell::index()

// Why a layout string could not be laid out; the board stays as it was.
enum class LayoutProblem : uint8_t { None, TooFewCommas, NumberTooLarge };

class Board {
public:
    // ---- where the cards lie and what is selected -------------------------------
    Table<int16_t> kartleft{};  // Left of every card image, twips
    Table<int16_t> karttop{};   // Top of every card image, twips
    Table<int16_t> mesta{};     // place 1..48 of every card of rank 2..13; rank 1 unused
    Table<uint8_t> border{};    // BorderStyle of every image: 1 while selected, else 0
    Table<uint32_t> zorder{};   // stacking order: higher lies in front
    uint32_t zcounter = 0;      // last stacking number handed out

    int16_t rezhim = 0;  // game phase: 1 from window load until the first deal, 2 from then on
    std::string raskl;   // layout string of the current layout (182 characters after a deal)
    int16_t vybor = 0;   // selection: 1 nothing selected, 2 a card selected

    Card karta1{};  // the selected card, and its suit and rank
    int16_t mast1 = 0, rang1 = 0;

    // Two boards are equal when the player sees the same and the next click does
    // the same on both: places, stacking order (with zcounter, which numbers the
    // next card brought to the front), borders, phase, deal, layout string and
    // the selection. karta1, mast1 and rang1 count only while a card is selected
    // (vybor 2): a first click writes them before anything reads them. The values
    // a click hands from one step to the next (karta, nomer, karta2, ...) do not count.
    friend bool operator==(const Board& a, const Board& b);

    // ---- window load ------------------------------------------------------------
    // Sets rezhim and vybor to 1 and calls start(): the state right after the
    // main window has loaded.
    static Board loaded();
    // Records the starting picture (an ordered deck) in kartleft/karttop.
    void start();

    // ---- dealing ----------------------------------------------------------------
    // New random layout; builds raskl. Writing save1.txt is the caller's next step.
    void rasklad(Random& random);
    // Deal again: lays the current layout (mesta) out once more.
    void rasklzan();

    // ---- clicks -----------------------------------------------------------------
    // The Click handler of card image Im<suit>_<rank>.
    Reaction clickCard(int suit, int rank);
    // The Click handler of pile place Image<image>, image 1..11.
    Reaction clickPile(int image);
    // Runs the click handler of whatever a Hit names.
    Reaction click(const Hit& hit);
    // End of game: are all four kings home on their foundations?
    bool konec() const;

    // ---- stored layouts ---------------------------------------------------------
    // Lays out the layout string in raskl (comma search, fields, mesta, places).
    // A string it cannot read changes nothing and says why.
    LayoutProblem vizraskl();
    // The Load command's hand-over: a non-empty line that can be laid out becomes
    // raskl and is shown; otherwise raskl and the board stay as they were.
    LayoutProblem showLayout(std::string_view line);
    // Continuing a game kept from an earlier run that began with a loaded
    // layout: the layout shown as Load shows it, and the board playable as
    // after a deal (rezhim 2).
    LayoutProblem continueLayout(std::string_view line);

    // ---- derived views (for the window, tests and tools) ------------------------
    Spot spot(Card c) const { return where(c.suit, c.rank); }
    // The cell a card lies in; off the grid for a reference that names no card.
    Cell cell(Card c) const { return cell(c.suit, c.rank); }
    bool isSelected(Card c) const { return vybor == 2 && karta1 == c && borderOf(c) == 1; }
    // The game's own questions, in words: has a first deal been made (rezhim 2)?
    // Is a card selected (vybor 2)?
    bool dealt() const { return rezhim == 2; }
    bool hasSelection() const { return vybor == 2; }
    // Takes the selection away as Undo does: vybor 1 and no card bordered.
    void clearSelection();
    // What every cell shows; cards off the grid show nowhere.
    GridContents contents() const;
    // Is a pile place seen (no card lies on its cell)?
    bool pileVisible(int image) const;
    // What a click at (x, y) twips on the board reaches; a card named in
    // `ignoring` is looked through as if it were not there.
    Hit hitAt(int x, int y, Card ignoring = {}) const;
    // Builds the layout string from mesta: 48 values " n" joined by ",".
    std::string buildRaskl() const;

private:
    // ---- the move routines the click handlers call, and the checks --------------
    Reaction perexod1(int16_t r, int16_t rr);  // a card of rank 2..13 was clicked
    Reaction perexod2(int16_t r, int16_t rr);  // the ace of suit r was clicked
    Reaction firstClick(int16_t r, int16_t rr);
    Reaction secondClick(int16_t r, int16_t rr);
    // Each check answers true for "refuse".
    bool prov1() const;     // is the selected base card blocked?
    bool prov2() const;     // is the target blocked in its half-row?
    int16_t prov3() const;  // Top where the played card lands; 0 when none
    bool prov4() const;     // are the two ranks not adjacent?
    bool prov5() const;     // a card from rows 1..4 onto a base card of row 5?
    bool prov7() const;     // is the middle card of row 5 hemmed in?
    bool prov10() const;    // is the target covered?

    // ---- values handed from one step of a click to the next ----------------------
    Card karta{};       // the card whose click handler runs
    int16_t nomer = 0;  // its rank, as the handler hands it on
    Card karta2{};      // the target of a second click, its suit and rank
    int16_t mast2 = 0, rang2 = 0;
    int16_t left2 = 0;  // the target's Left, where the played card goes

    void bringToFront(int suit, int rank);
    void placeFromMesta();
    // Rank of the base card of the cell a card of `suit` lies on (that card
    // lying at `stacked`), scanning ranks firstRank..13; 0 when there is none.
    int findBaseRank(int suit, Cell stacked, int firstRank) const;
    // Position of a card; a reference that names no card has none and reads (0, 0).
    Spot where(int suit, int rank) const {
        return isCard(suit, rank) ? Spot{kartleft(suit, rank), karttop(suit, rank)} : Spot{};
    }
    Cell cell(int suit, int rank) const { return cellOf(where(suit, rank)); }
    void setBorder(Card c, uint8_t style);
    uint8_t borderOf(Card c) const;
    // Moves one card: new Left and Top, brought to the front, border removed.
    // Returns whether the card changed place.
    bool moveCard(int suit, int rank, Spot to);
    // Moves a cell from its selected card (rank m) to its base card (rank b),
    // the selected card to `first`, every other card to `rest`.
    bool moveRun(int suit, int m, int b, Spot first, Spot rest);
};

// Reads a layout string as vizraskl does; used to check a string before it is laid
// out. Fills places[1..48] on success.
LayoutProblem readLayout(std::string_view layout, std::array<int16_t, 49>& places);

}  // namespace vorn
