#include "calls/power_cuts.hpp"

#include <algorithm>
#include <unordered_set>

namespace pelrath::calls {

namespace {

constexpr std::size_t few = 64; ///< states behind one step that are all looked at

std::size_t hashOf(const Inventory& state) {
    std::size_t hash = 0;
    const auto mix = [&hash](std::size_t value) {
        hash = (hash ^ value) * 0x9E3779B97F4A7C15U + (hash >> 29U);
    };
    for (const auto& [name, key] : state.names) {
        const StoredFile& file = state.files.at(key);
        mix(std::hash<std::string>{}(name));
        mix(std::hash<std::string>{}(*file.bytes));
        mix(file.mode);
    }
    return hash;
}

class Drawing {
public:
    Drawing(const std::vector<Question>& questions, std::size_t stepsDone, std::mt19937& random)
        : questions_(questions), stepsDone_(stepsDone), random_(random) {}

    /// The number of answers to the questions that matter, cut at `few` + 1.
    [[nodiscard]] std::size_t combinations() const {
        std::size_t all = 1;
        for (const Question& question : questions_) {
            if (!question.minor) all = std::min(all * question.since.size(), few + 1);
        }
        return all;
    }
    /// One of those, and anything for the rest.
    [[nodiscard]] Answers combination(std::size_t number) {
        Answers answers = draw();
        for (std::size_t i = 0; i < questions_.size(); ++i) {
            if (questions_[i].minor) continue;
            answers[i] = static_cast<std::uint16_t>(number % questions_[i].since.size());
            number /= questions_[i].since.size();
        }
        return answers;
    }
    /// Much is found where nearly all, or hardly anything, has reached the disk, or all up to a moment.
    [[nodiscard]] Answers draw() {
        const unsigned kind = below(5);
        const unsigned newInTen = kind == 0 ? 1 : kind == 1 ? 9 : 5;
        const std::size_t moment = below(stepsDone_ + 1);
        Answers answers;
        for (const Question& question : questions_) {
            const std::size_t options = question.since.size();
            std::size_t chosen = 0;
            if (kind == 4) { // as it was at that moment
                while (chosen + 1 < options && question.since[chosen + 1] <= moment) {
                    ++chosen;
                }
            } else if (kind == 3) {
                chosen = below(options);
            } else {
                chosen = below(10) < newInTen ? options - 1 : below(options);
            }
            answers.push_back(static_cast<std::uint16_t>(chosen));
        }
        return answers;
    }

private:
    [[nodiscard]] unsigned below(std::size_t limit) { return static_cast<unsigned>(random_() % limit); }

    const std::vector<Question>& questions_;
    std::size_t stepsDone_;
    std::mt19937& random_;
};

/// One walk along a log: the questions behind each of its steps.
template <class Visit>
void walk(const Log& log, std::mt19937& random, const Visit& visit) {
    for (Disk disk{log};; disk.next()) {
        const std::vector<Question> questions = disk.questions();
        visit(disk, Drawing{questions, disk.stepsDone(), random});
        if (disk.stepsDone() == log.steps.size()) return;
    }
}

/// Power cuts that leave different disks.
class Cuts {
public:
    void add(const Disk& disk, Answers answers) {
        if (seen_.insert(hashOf(disk.after(answers))).second)
            cuts_.push_back({disk.stepsDone(), std::move(answers)});
    }
    void draw(const Disk& disk, Drawing& answers, std::size_t count) {
        const std::size_t goal = cuts_.size() + count;
        for (std::size_t tries = 0; tries < 3 * count && cuts_.size() < goal; ++tries) {
            add(disk, answers.draw());
        }
    }
    [[nodiscard]] std::size_t missing(std::size_t count) const {
        return count - std::min(count, cuts_.size());
    }
    /// As many behind one step as behind another, as far as there are.
    [[nodiscard]] std::vector<PowerCut> take(std::size_t count, std::mt19937& random) {
        std::shuffle(cuts_.begin(), cuts_.end(), random);
        std::map<std::size_t, std::size_t> taken;
        std::vector<std::pair<std::size_t, std::size_t>> turns; // of the step, and which cut
        turns.reserve(cuts_.size());
        for (std::size_t i = 0; i < cuts_.size(); ++i) {
            turns.push_back({taken[cuts_[i].behind]++, i});
        }
        std::sort(turns.begin(), turns.end());
        turns.resize(std::min(count, turns.size()));
        std::vector<PowerCut> chosen;
        chosen.reserve(turns.size());
        for (const auto& [turn, i] : turns) {
            chosen.push_back(std::move(cuts_[i]));
        }
        std::stable_sort(chosen.begin(), chosen.end(),
                         [](const PowerCut& a, const PowerCut& b) { return a.behind < b.behind; });
        return chosen;
    }

private:
    std::vector<PowerCut> cuts_;
    std::unordered_set<std::size_t> seen_;
};

} // namespace

std::vector<PowerCut> choosePowerCuts(const Log& log, std::size_t count, std::mt19937& random) {
    Cuts cuts;
    std::size_t many = 0; // steps behind which there are more than few
    walk(log, random, [&](const Disk& disk, Drawing answers) {
        const std::size_t combinations = answers.combinations();
        if (combinations > few) ++many;
        for (std::size_t i = 0; combinations <= few && i < combinations; ++i) {
            cuts.add(disk, answers.combination(i));
        }
    });
    const std::size_t share = many == 0 ? 0 : cuts.missing(count) / many + 1;
    walk(log, random, [&](const Disk& disk, Drawing answers) {
        if (answers.combinations() > few) cuts.draw(disk, answers, share);
    });
    const std::size_t rest = cuts.missing(count) / log.steps.size() + 1;
    walk(log, random, [&](const Disk& disk, Drawing answers) { cuts.draw(disk, answers, rest); });
    return cuts.take(count, random);
}

void visitPowerCuts(const Log& log, const std::vector<PowerCut>& cuts,
                    const std::function<void(const PowerCut&, const Inventory&)>& visit) {
    Disk disk{log};
    for (const PowerCut& cut : cuts) {
        while (disk.stepsDone() < cut.behind) {
            disk.next();
        }
        visit(cut, disk.after(cut.answers));
    }
}

} // namespace pelrath::calls
