#pragma once

#include <cstdint>
#include <functional>

/// The value rows of one property, in display order. Those that have widgets are, save for one that
/// has to keep them, an unbroken range.
class CreatableRows {
public:
    CreatableRows() = default;
    CreatableRows(const CreatableRows&) = delete;
    CreatableRows& operator=(const CreatableRows&) = delete;

    /// Rows, or groups of equal rows; 0 while they are not to be seen.
    virtual int rowCount() const = 0;
    virtual void createRow(int row) = 0;
    /// A row that has the keyboard may keep its widgets.
    virtual void destroyRow(int row) = 0;

    // The range [firstCreated, endCreated). An empty one stands at either end of the rows.
    int firstCreated = 0;
    int endCreated = 0;

protected:
    ~CreatableRows() = default;
};

/// The sets of the window with their properties, in display order.
class CreatableSets {
public:
    CreatableSets() = default;
    CreatableSets(const CreatableSets&) = delete;
    CreatableSets& operator=(const CreatableSets&) = delete;

    /// The first and the last property of a set that hold rows with widgets; where none does they
    /// are left as they were.
    struct Cursors {
        std::int32_t first = 0;
        std::int32_t last = 0;
    };

    virtual int setCount() const = 0;
    virtual int propertyCount(int set) const = 0;
    virtual CreatableRows& rowsOf(int set, int property) const = 0;
    virtual Cursors& cursorsOf(int set) const = 0;
    /// Header lines of sets and properties that have widgets.
    virtual int headerCount() const = 0;

protected:
    ~CreatableSets() = default;
};

enum class Direction { Down, Up };

/// What one scroll event asks for.
struct ScrollStep {
    Direction direction = Direction::Down;
    bool isMove = false;  ///< false: nothing is to be done
    int create = 0;       ///< rows in the direction of the movement, at most
    int destroy = 0;      ///< rows at the other end, at most
};

/// value, maximum: of the scroll bar. lastPercent: where it stood before. windowSize: rows that
/// have widgets. netCreated: rows created minus deleted by scrolling; each ten of a surplus lessen
/// what is created by one.
ScrollStep scrollStep(int value, int maximum, int lastPercent, int windowSize, double netCreated);

/// Which of many rows have widgets: a window that moves over the rows as the user scrolls. Creates
/// at one end and deletes at the other; headers are not its concern.
class CreationWindow {
public:
    explicit CreationWindow(CreatableSets& sets) : sets_(sets) {}

    using MayDestroy = std::function<bool(CreatableRows& rows, int row)>;

    // Each moves over at most `limit` rows and returns how many it did. Deletion ends early at the
    // first row that `mayDestroy` keeps.
    int createAtEnd(int limit) { return create(Direction::Down, limit); }
    int createAtBeginning(int limit) { return create(Direction::Up, limit); }
    int deleteAtBeginning(int limit, const MayDestroy& mayDestroy) {
        return destroy(Direction::Down, limit, mayDestroy);
    }
    int deleteAtEnd(int limit, const MayDestroy& mayDestroy) {
        return destroy(Direction::Up, limit, mayDestroy);
    }
    /// Extends the range of one property, which need not be at an end of the window.
    int extend(CreatableRows& rows, Direction direction, int limit);

    /// Finds the ends of the window again, after rows came or went otherwise.
    void update();

    // Value rows deleted before the window, and the same plus all rows that have widgets, headers
    // included.
    std::int32_t createdFrom = 0;
    std::int32_t createdTo = 0;
    std::int32_t lastScrollValue = 0;
    std::int32_t lastScrollPercent = 0;
    // The sets that hold the first and the last row with widgets.
    std::int32_t firstCreatedSet = -1;
    std::int32_t lastCreatedSet = 0;

private:
    struct Place {
        int set = 0;
        int property = 0;
    };

    Place firstPlace() const;
    Place lastPlace() const;
    bool isInside(Place place) const;
    Place next(Place place, Direction direction) const;
    int create(Direction direction, int limit);
    int destroy(Direction direction, int limit, const MayDestroy& mayDestroy);

    CreatableSets& sets_;
};
