#pragma once

// Runs work(t) for t = 0 .. count-1, each on a thread of its own, and waits for all of them: the
// shape of every test that checks a service under concurrent use.

#include <thread>
#include <vector>

template <class Work>
void onThreads(int count, Work work) {
    std::vector<std::thread> threads;
    for (int t = 0; t < count; ++t)
        threads.emplace_back(work, t);
    for (auto& thread : threads)
        thread.join();
}
