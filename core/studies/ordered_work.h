// SPDX-License-Identifier: GPL-3.0-or-later
// Work on many threads with its results in order and a bounded number of them at a time.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include "core/studies/shortage.h"

namespace tarvokol {

// Takes pieces from a source, works on them on several threads and hands the results over in the order of the
// pieces. Not more than some four pieces a thread are under way, so memory stays flat however many there are.
template <typename Piece, typename Result>
class OrderedWork {
  public:
    // Gives the next piece, nothing at the end. Called by one thread at a time.
    using Source = std::function<std::optional<Piece>()>;
    // Works on one piece; called by many threads at once.
    using Work = std::function<Result(Piece&)>;
    // Takes the results in order, in the calling thread; false ends the work early.
    using Sink = std::function<bool(Result&&)>;

    OrderedWork(Source source, Work work) : source_(std::move(source)), work_(std::move(work)) {}

    // Runs to the end of the source or until the sink refuses. An exception of source, work or sink ends all
    // threads and comes out here, that of the earliest piece first. Threads that cannot be started raise
    // StudyShortage once those that run have ended.
    void Run(unsigned threads, const Sink& sink) {
        outcomes_ = std::vector<std::optional<Outcome>>(std::size_t{threads} * 4);
        std::vector<std::jthread> workers;
        workers.reserve(threads);
        // However this is left, no worker goes on waiting for its turn.
        const Stopper stopper{*this};
        for (unsigned i = 0; i < threads; ++i) StartThread(workers, threads, [this] { WorkOn(); });
        while (auto result = NextResult())
            if (!sink(std::move(*result))) break;
    }

  private:
    struct Outcome {
        std::optional<Result> result;
        std::exception_ptr failure;
    };

    struct Stopper {
        OrderedWork& work;
        ~Stopper() { work.Stop(); }
    };

    // The place of a piece's outcome. No two pieces under way share one, and filling it asks for no memory.
    std::optional<Outcome>& PlaceOf(std::uint64_t number) { return outcomes_[number % outcomes_.size()]; }

    // The turn at the source is a lock of its own: reading on never keeps finished results from being handed
    // over.
    std::optional<Piece> TakePiece(std::uint64_t& number) {
        const std::scoped_lock turn(source_mutex_);
        {
            std::unique_lock lock(mutex_);
            room_.wait(lock, [this] { return stopped_ || taken_ < handed_ + outcomes_.size(); });
            if (stopped_ || ended_) return std::nullopt;
            number = taken_++;
        }
        std::optional<Piece> piece;
        std::exception_ptr failure;
        try {
            piece = source_();
        } catch (...) {
            failure = std::current_exception();
        }
        if (piece) return piece;
        const std::scoped_lock lock(mutex_);
        ended_ = true;
        // After the last piece stands an outcome without a result, which tells the end.
        PlaceOf(number).emplace(Outcome{std::nullopt, failure});
        ready_.notify_one();
        return std::nullopt;
    }

    void WorkOn() {
        std::uint64_t number = 0;
        while (std::optional<Piece> piece = TakePiece(number)) {
            Outcome outcome;
            try {
                outcome.result = work_(*piece);
            } catch (...) {
                outcome.failure = std::current_exception();
            }
            const std::scoped_lock lock(mutex_);
            PlaceOf(number).emplace(std::move(outcome));
            ready_.notify_one();
        }
    }

    // The next result in order; nothing after the last one.
    std::optional<Result> NextResult() {
        std::unique_lock lock(mutex_);
        std::optional<Outcome>& place = PlaceOf(handed_);
        ready_.wait(lock, [&place] { return place.has_value(); });
        if (place->failure) std::rethrow_exception(place->failure);
        std::optional<Result> result = std::move(place->result);
        place.reset();
        ++handed_;
        room_.notify_all();
        return result;
    }

    void Stop() {
        const std::scoped_lock lock(mutex_);
        stopped_ = true;
        room_.notify_all();
    }

    Source source_;
    Work work_;
    std::mutex source_mutex_;
    std::mutex mutex_;
    std::condition_variable ready_;
    std::condition_variable room_;
    std::vector<std::optional<Outcome>> outcomes_;
    std::uint64_t taken_ = 0;
    std::uint64_t handed_ = 0;
    bool ended_ = false;
    bool stopped_ = false;
};

}  // namespace tarvokol
