// Opening the record away from the user-interface thread.
#include "game_record.h"

#include <iostream>
#include <utility>

namespace vorn::shell {

GameRecord::~GameRecord() {
    if (opening_.valid()) opening_.wait();
}

void GameRecord::open(std::function<void()> opened) {
    if (!folder_) return;
    opening_ = std::async(std::launch::async, [folder = *std::exchange(folder_, std::nullopt), opened] {
        record::Opened record = record::Record::open(folder);
        opened();
        return record;
    });
}

record::Record* GameRecord::get() {
    if (folder_) open([] {});  // asked for before the window showed: opened now
    if (opening_.valid()) {
        record::Opened opened = opening_.get();
        if (opened.problem != record::Opened::Problem::None) {
            std::cerr << "vorn: the game record: " << opened.detail << '\n';
            problem_ = Problem{opened.problem,
                               (opened.problem == record::Opened::Problem::MovedAside ? opened.movedTo : opened.file)
                                   .string(),
                               false};
        }
        record_ = std::move(opened.record);
    }
    return record_ ? &*record_ : nullptr;
}

std::optional<GameRecord::Problem> GameRecord::takeProblem() {
    get();
    if (told_ || !problem_) return std::nullopt;
    told_ = true;
    return problem_;
}

void GameRecord::failed() {
    if (!record_) return;
    std::cerr << "vorn: the game record: " << record_->errorText() << '\n';
    if (!problem_) problem_ = Problem{record::Opened::Problem::CannotWrite, {}, true};
    record_.reset();
}

}  // namespace vorn::shell
