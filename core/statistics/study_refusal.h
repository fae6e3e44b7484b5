// SPDX-License-Identifier: GPL-3.0-or-later
// What a study cannot be done with, in one line for the user.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace tarvokol {

// A request that makes no sense: an unknown field, a range that leads nowhere, a distribution that does not exist. It
// names what it is about and what is wrong with it, and no option or box: whoever shows it puts in front where the user
// gave it.
class StudyRefusal : public std::runtime_error {
  public:
    explicit StudyRefusal(const std::string& fault) : StudyRefusal("", fault) {}

    // `subject` is what is refused, most often a field's name.
    StudyRefusal(std::string subject, const std::string& fault)
        : std::runtime_error(subject.empty() ? fault : subject + ": " + fault),
          subject_(std::move(subject)),
          fault_(fault) {}

    const std::string& Subject() const { return subject_; }
    const std::string& Fault() const { return fault_; }

  private:
    std::string subject_;
    std::string fault_;
};

// A request that makes sense, but that this machine has not enough of something for: memory, threads. The fault says what
// to change.
class StudyShortage : public StudyRefusal {
  public:
    using StudyRefusal::StudyRefusal;
};

// Does the work; what it refuses is said of `subject`.
template <typename Work>
decltype(auto) About(const std::string& subject, Work work) {
    try {
        return work();
    } catch (const StudyRefusal& refusal) {
        throw StudyRefusal(subject, refusal.Fault());
    }
}

}  // namespace tarvokol
