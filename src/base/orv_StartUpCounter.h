#ifndef ORV_BASE_ORV_STARTUPCOUNTER_H
#define ORV_BASE_ORV_STARTUPCOUNTER_H

/// Counts the starts of one module, so that any number of callers may start and stop it and only the first start and
/// the last stop do work. Every start-up entry owns one with static storage:
///
///     void OrvLumXyz_initialize(int& count) {
///         if (counter.Start(count)) { /* one-time work */ }
///     }
///
/// Stopping more often than starting is not guarded against: the counter wraps below zero, nothing is done, and as
/// many starts later nothing has to be done either. Neither atomic nor locked: modules start and stop on one thread.
class orv_StartUpCounter {
public:
    /// True for the first start, which also adds 1 to the caller's count: the caller then does the one-time work.
    /// The start counts even when that work throws.
    bool Start(int& count) noexcept {
        if (_starts++ != 0) return false;
        count = static_cast<int>(static_cast<unsigned>(count) + 1U);
        return true;
    }

    /// True for the last stop, which also takes 1 from the caller's count: the caller then undoes the one-time work.
    bool Stop(int& count) noexcept {
        if (_starts-- != 1) return false;
        count = static_cast<int>(static_cast<unsigned>(count) - 1U);
        return true;
    }

private:
    unsigned _starts = 0;
};

#endif
