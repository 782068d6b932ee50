#pragma once

/// Bounds what one operation copies: the members of squads, those of inner squads included, and the equipment of units,
/// each up to a number of its own; what exceeds it is error 7. Squads that name each other unfold, update by update,
/// into more copies than any memory holds, and so does a unit of many items under many entries.
///
/// Whoever copies opens a scope. Scopes inside another one join it: an operation that opens one around all its copies
/// is bounded as a whole.
class CCopying {
  public:
    static constexpr int kMostMembers = 200'000;
    static constexpr int kMostItems = 200'000;
    /// A scope deeper inside others is error 28: squads that hold each other nest deeper with every update, without
    /// many members.
    static constexpr int kDeepest = 2'000;

    CCopying();
    CCopying(const CCopying&) = delete;
    CCopying& operator=(const CCopying&) = delete;
    ~CCopying();

    /// Before the copy is made.
    void CountMember();
    void CountItem();

  private:
    static int depth_;
    static int members_;
    static int items_;
};
