#include "list/ThanksViewModel.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace tamsel {
namespace {

// A store that answers when the test says so.
class FakeTipProvider final : public TipProvider {
public:
    void availableTips(std::function<void(const QList<Tip>&)> answer) override {
        ++questions;
        tipsAnswer = std::move(answer);
    }
    void purchase(const Tip& tip, std::function<void(TipResult)> answer) override {
        purchased += tip.identifier;
        purchaseAnswer = std::move(answer);
    }

    int questions = 0;
    QStringList purchased;
    std::function<void(const QList<Tip>&)> tipsAnswer;
    std::function<void(TipResult)> purchaseAnswer;
};

class ThanksViewModelTest : public testing::Test {
protected:
    void offer(const QList<Tip>& tips) {
        thanks->onAppear();
        provider.tipsAnswer(tips);
    }

    const QList<Tip> twoTips = {{QStringLiteral("small"), QStringLiteral("Reed"), QStringLiteral("2 €")},
                                {QStringLiteral("large"), QStringLiteral("Strings"), QStringLiteral("10 €")}};
    FakeTipProvider provider;
    std::optional<ThanksViewModel> thanks{std::in_place, &provider};
};

TEST_F(ThanksViewModelTest, WithoutAStoreItSaysSoAndOffersNothing) {
    ThanksViewModel here(nullptr);
    here.onAppear();
    here.tip(0);
    EXPECT_TRUE(here.tipJarText().startsWith(QStringLiteral("Tips cannot be taken here")));
    EXPECT_TRUE(here.tips().isEmpty());
    EXPECT_FALSE(here.canAskAgain());
    EXPECT_EQ(here.navigationTitle(), QStringLiteral("Thanks!"));
}

TEST_F(ThanksViewModelTest, TheStoreIsAskedOnceUnlessItHadNothing) {
    EXPECT_EQ(provider.questions, 0) << "not before somebody looks";
    thanks->onAppear();
    thanks->onAppear();
    EXPECT_EQ(provider.questions, 1);
    provider.tipsAnswer({});
    EXPECT_TRUE(thanks->canAskAgain());
    thanks->askAgain();
    EXPECT_FALSE(thanks->canAskAgain());
    provider.tipsAnswer(twoTips);
    EXPECT_EQ(thanks->tips(), twoTips);
    thanks->onAppear();
    EXPECT_EQ(provider.questions, 2);
}

TEST_F(ThanksViewModelTest, APurchaseEndsInWords) {
    struct Case {
        TipResult result;
        const char* text;
    };
    for (const Case& one :
         {Case{TipResult::success, "Your tip has arrived. Thank you!"}, Case{TipResult::cancelled, "No tip was taken."},
          Case{TipResult::failed, "The store could not take the tip. You can try again."},
          Case{TipResult::pending, "Your tip waits for approval. Thank you!"}}) {
        thanks.emplace(&provider);
        provider.purchased.clear();
        offer(twoTips);
        thanks->tip(1);
        EXPECT_FALSE(thanks->canTip());
        thanks->tip(0);
        EXPECT_EQ(provider.purchased, QStringList(QStringLiteral("large"))) << "one at a time";
        thanks->onAppear();
        provider.purchaseAnswer(one.result);
        EXPECT_EQ(thanks->tipJarText().toStdString(), one.text);
        EXPECT_TRUE(thanks->canTip()) << "another one, or another try";
        EXPECT_EQ(thanks->tips(), twoTips);
        provider.purchaseAnswer(TipResult::failed);
        EXPECT_EQ(thanks->tipJarText().toStdString(), one.text) << "a purchase ends once";
    }
}

TEST_F(ThanksViewModelTest, RowsThatAreNotThereAreNoPurchase) {
    offer(twoTips);
    for (const int row : {-1, 2})
        thanks->tip(row);
    EXPECT_TRUE(provider.purchased.isEmpty());
    EXPECT_TRUE(thanks->canTip());
}

TEST_F(ThanksViewModelTest, AnAnswerMayComeTooLate) {
    offer(twoTips);
    thanks->tip(0);
    thanks.reset();
    provider.purchaseAnswer(TipResult::success);
    provider.tipsAnswer(twoTips);
}

} // namespace
} // namespace tamsel
