#include "WorldFixture.h"
#include "gameplay/Deathmatch.h"
#include "graphics/EffectParticle.h"
#include "graphics/EffectSpeechBubble.h"

namespace {

// The default floor is 800 wide: a word over the noise reaches that far.
const float WIDTH = 800.0f;

float expectedDamage(float distance, float range, float power) {
    float share = distance / range;
    return (1.0f - share * share) * power * 10.0f;
}

using ArenaTest = WorldTest;

// A word at (400, 450) from a speaker facing right (0) or left (4), or from
// nobody (-1), to one hearer on the floor's y at (x, z).
TEST_F(ArenaTest, RangeShrinksUnderTheNoiseAndHearersBehindTheSpeakersBackTakeAQuarter) {
    struct Case { const char* what; float noise, power; int32_t facing; float x, z; int hits; float damage; };
    const Case cases[] = {
        {"a quiet arena: the whole width", 0, 2, -1, 900, 0, 1, expectedDamage(500, WIDTH, 2)},
        {"power at half the noise: half the width", 4, 2, -1, 500, 0, 1, expectedDamage(100, WIDTH / 2, 2)},
        {"just past that range", 4, 2, -1, 801, 0, 0, 0},
        {"power equal to the noise: the whole width", 4, 4, -1, 900, 0, 1, expectedDamage(500, WIDTH, 4)},
        {"exactly at the range: hit with nothing", 0, 3, -1, 1200, 0, 1, 0},
        {"height counts", 0, 1, -1, 700, 400, 1, expectedDamage(500, WIDTH, 1)},
        {"silence in silence reaches nobody", 0, 0, -1, 400, 0, 0, 0},
        {"silence in noise reaches only its own spot", 1, 0, -1, 400, 0, 1, 0},
        {"nonsense reaches nobody", 0, NAN, -1, 400, 0, 0, 0},
        {"8 pixels behind the back: the full word", 0, 1, 0, 392, 6, 1, expectedDamage(10, WIDTH, 1)},
        {"9 pixels behind: a quarter", 0, 1, 0, 391, 12, 1, 0.25f * expectedDamage(15, WIDTH, 1)},
        {"8 pixels behind a speaker facing left", 0, 1, 4, 408, 6, 1, expectedDamage(10, WIDTH, 1)},
        {"9 pixels behind a speaker facing left", 0, 1, 4, 409, 12, 1, 0.25f * expectedDamage(15, WIDTH, 1)},
    };
    Character* speaker = addFighter(400.0f, 450.0f);
    Character* hearer = addFighter(0.0f, 450.0f);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        speaker->restart();
        hearer->restart();
        hearer->position = Vector(c.x, 450.0f, c.z, 0.0f);
        speaker->direction = c.facing;
        arena.setNoise(c.noise);
        double heard = eval(hearer->lua, "#hits");
        arena.say(speaker->position, c.power, c.facing < 0 ? nullptr : speaker);
        EXPECT_EQ(eval(hearer->lua, "#hits"), heard + c.hits);
        EXPECT_NEAR(100.0f - hearer->hp, c.damage, 1e-4);
        EXPECT_TRUE(c.facing < 0 || speaker->hp == 100.0f);  // a speaker doesn't hear itself
    }
}

// A speaking hearer strikes back at twice the unreduced damage; a word from
// nobody never strikes back, and the dead are hit all the same.
TEST_F(ArenaTest, StrikingBackAndTheAnnouncementOfTheWord) {
    Character* speaker = addFighter(400.0f, 450.0f, 4);  // faces away from the hearer
    Character* hearer = addFighter(600.0f, 450.0f);
    EventListener listener;
    arena.addListener(&listener);
    hearer->state |= Character::SPEAKING;
    arena.say(speaker->position, 2.0f, speaker);
    float full = expectedDamage(200.0f, WIDTH, 2.0f);
    EXPECT_NEAR(100.0f - speaker->hp, 2.0f * full, 1e-4);
    EXPECT_NEAR(100.0f - hearer->hp, 0.25f * full, 1e-4);
    EXPECT_EQ(speaker->lastEvent.input, INPUT_HIT | INPUT_HIT_SELF);
    EXPECT_EQ((std::vector<double>{eval(speaker->lua, "hitSelf[1]"), eval(hearer->lua, "hitSelf[1]")}),
              (std::vector<double>{0, -1}));
    ASSERT_EQ(listener.queue.size(), 1u);
    EXPECT_EQ(listener.queue.back().type, EVENT_SPEECH);
    EXPECT_EQ(listener.queue.back().input, 2);
    EXPECT_EQ(listener.queue.back().speaker, speaker);

    speaker->restart();
    hearer->restart();
    hearer->state = Character::DEAD | Character::SPEAKING;
    arena.say(speaker->position, 2.0f, nullptr);
    EXPECT_NEAR(100.0f - hearer->hp, full, 1e-4);
    EXPECT_NEAR(100.0f - speaker->hp, 20.0f, 1e-4);  // at the spot of the word
}

TEST_F(ArenaTest, FightersFillTheStartsInTurnAndFaceTheCentre) {
    for (const char* script : {"no_init.lua", "broken.lua", "missing.lua"})  // a broken arena loads no fighters
        EXPECT_FALSE(Arena().init(dataPath(script))) << script;
    Character* first = addFighter(0.0f, 0.0f);
    Character* second = addFighter(0.0f, 0.0f);
    Character* third = addFighter(0.0f, 0.0f);
    arena.characters.clear();
    for (Character* fighter : {first, second, third}) arena.addCharacter(fighter);
    first->position.x = 123.0f;
    arena.addCharacter(first);  // the same id again: placed again, listed once
    EXPECT_EQ((std::vector<float>{first->position.x, second->position.x, third->position.x}),
              (std::vector<float>{200, 600, 200}));
    EXPECT_EQ((std::vector<int32_t>{first->direction, second->direction}), (std::vector<int32_t>{0, 4}));
    EXPECT_EQ(arena.characters.size(), 3u);
    // Without starts a fighter stands in the centre, which counts as the right half.
    arena.startPositions.clear();
    arena.setSize(100.0f, 200.0f, 300.0f, 100.0f);
    arena.addCharacter(first);
    EXPECT_EQ((std::vector<float>{first->position.x, first->position.y}), (std::vector<float>{250, 250}));
    EXPECT_EQ(first->direction, 4);
}

TEST_F(ArenaTest, UpdateRunsEveryFighterAndOnlyWorldsThatDrawSortThem) {
    Character* low = addFighter(100.0f, 550.0f);
    Character* high = addFighter(300.0f, 350.0f);
    arena.update(0.125f);
    EXPECT_EQ(arena.getCharacter(0), low);
    arena.objectType = OBJECT_CLIENT;  // runs no script
    arena.update(0.125f);
    EXPECT_EQ(arena.getCharacter(0), high);
    EXPECT_EQ((std::vector<double>{eval(arena.lua, "updates"), eval(low->lua, "updates"), eval(high->lua, "updates")}),
              (std::vector<double>{1, 2, 2}));
}

// A fighter that leaves takes its bubbles along, and its place in the rules;
// other effects and fighters stay. A server world loads no picture at all.
TEST_F(ArenaTest, ALeavingFighterTakesItsBubblesAlong) {
    EXPECT_EQ(arena.background.sprite, nullptr);
    Character* leaving = addFighter(100.0f, 400.0f);
    Character* staying = addFighter(300.0f, 400.0f);
    for (Character* speaker : {leaving, staying, leaving}) {
        auto* bubble = new Effects::SpeechBubble();
        bubble->character = speaker;
        arena.effects.push_back(bubble);  // a server world keeps no effects of its own accord
    }
    arena.effects.push_back(new Effects::Particle());
    GameModes::Deathmatch rules;
    rules.addCharacter(leaving);
    rules.addCharacter(staying);
    arena.removeCharacter(leaving);
    rules.removeCharacter(leaving);
    EXPECT_EQ(arena.characters, std::vector<Character*>{staying});
    EXPECT_EQ(rules.characters, std::vector<Character*>{staying});
    ASSERT_EQ(arena.effects.size(), 2u);
    EXPECT_TRUE(arena.effects.front()->follows(staying));
    EXPECT_FALSE(arena.effects.back()->follows(staying));
}

}  // namespace
