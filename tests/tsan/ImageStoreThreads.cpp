// SPDX-License-Identifier: GPL-3.0-or-later
// The store of pictures under three threads at once: the image thread asks, the main thread stores what was asked for,
// and the link empties it. Built with the thread sanitizer, which ends the program at the first race; the program
// itself checks that no picture outlives the connection it was asked on.
#include "data/ImageStore.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace {

constexpr int rounds = 20000;
constexpr int pictures = 8;

struct Asked
{
    std::string id;
    std::uint64_t generation;
};

int failures = 0;

void check(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Failed: %s\n", what);
    ++failures;
}

std::string idOf(int round)
{
    return "picture " + std::to_string(round % pictures);
}

// The bytes tell what picture they are and on which connection they were asked for.
std::string bytesOf(const Asked &asked)
{
    return asked.id + " of " + std::to_string(asked.generation);
}

void storesWhatWasAskedForSince()
{
    ImageStore store;
    const auto first = store.find("a");
    check(!first.bytes, "an empty store has nothing");
    check(store.put("a", first.generation, std::make_shared<const std::string>("one")), "an answer in time is stored");
    check(store.put("a", first.generation, std::make_shared<const std::string>("two")), "a second one as well");
    check(*store.find("a").bytes == "two", "the second answer replaces the first");
    check(!store.find("b").bytes, "each id is its own");

    const auto held = store.find("a").bytes;
    store.clear();
    check(!store.find("a").bytes, "a cleared store has nothing");
    check(*held == "two", "bytes in use outlive the clearing");
    check(!store.put("a", first.generation, std::make_shared<const std::string>("old")), "a late answer is refused");
    check(!store.find("a").bytes, "and not stored");
    const auto second = store.find("a");
    check(store.put("a", second.generation, std::make_shared<const std::string>()), "an empty picture is stored");
    check(store.find("a").bytes && store.find("a").bytes->empty(), "and found");
}

void keepsConnectionsApartUnderThreeThreads()
{
    ImageStore store;
    std::mutex mutex;
    std::deque<Asked> asked;
    std::atomic<bool> over{false};
    std::atomic<int> hits{0};
    std::atomic<int> strays{0};
    std::atomic<int> stored{0};
    std::atomic<int> refused{0};

    std::thread imageThread([&] {
        for (int round = 0; round < rounds; ++round) {
            const auto id = idOf(round);
            const auto found = store.find(id);
            if (found.bytes) {
                ++hits;
                if (*found.bytes != bytesOf({id, found.generation}))
                    ++strays;
            } else {
                const std::lock_guard<std::mutex> lock(mutex);
                asked.push_back({id, found.generation});
            }
        }
        over = true;
    });
    std::thread mainThread([&] {
        for (;;) {
            const bool isLast = over;
            std::deque<Asked> taken;
            {
                const std::lock_guard<std::mutex> lock(mutex);
                taken.swap(asked);
            }
            for (const auto &one : taken) {
                const bool isStored =
                    store.put(one.id, one.generation, std::make_shared<const std::string>(bytesOf(one)));
                ++(isStored ? stored : refused);
            }
            if (isLast)
                return;
            std::this_thread::yield();
        }
    });
    std::thread linkThread([&] {
        for (int seen = 0; !over; std::this_thread::yield()) {
            if (stored < seen + pictures / 2)
                continue; // so that there are hits too
            seen = stored;
            store.clear();
        }
    });
    imageThread.join();
    mainThread.join();
    linkThread.join();

    check(strays == 0, "what is found was asked for on the present connection");
    check(hits + stored + refused >= rounds, "each request was a hit or came to an end");
    std::printf("%d hits, %d answers stored, %d refused\n", hits.load(), stored.load(), refused.load());
}

} // namespace

int main()
{
    storesWhatWasAskedForSince();
    keepsConnectionsApartUnderThreeThreads();
    return failures == 0 ? 0 : 1;
}
