#include "platform/Observable.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace tamsel {
namespace {

TEST(Observable, TellsThoseWhoAreSubscribed) {
    Observable observable;
    int first = 0;
    int second = 0;
    const auto stays = observable.subscribe([&] { ++first; });
    {
        const auto ends = observable.subscribe([&] { ++second; });
        observable.notify();
    }
    observable.notify();
    EXPECT_EQ(first, 2);
    EXPECT_EQ(second, 1);
}

TEST(Observable, SubscriptionsMayChangeWhileItNotifies) {
    Observable observable;
    std::vector<int> told;
    std::optional<Observable::Subscription> late;
    std::optional<Observable::Subscription> cancelled;
    const auto canceller = observable.subscribe([&] {
        told.push_back(1);
        cancelled.reset();
        if (!late)
            late.emplace(observable.subscribe([&] { told.push_back(3); }));
    });
    cancelled.emplace(observable.subscribe([&] { told.push_back(2); }));
    observable.notify();
    EXPECT_EQ(told, std::vector<int>({1})) << "cancelled before its turn; added after the round began";
    observable.notify();
    EXPECT_EQ(told, std::vector<int>({1, 1, 3}));
}

TEST(Observable, SubscriptionOutlivesIt) {
    auto observable = std::make_unique<Observable>();
    auto subscription = observable->subscribe([] {});
    observable.reset();
    subscription.cancel();
}

} // namespace
} // namespace tamsel
