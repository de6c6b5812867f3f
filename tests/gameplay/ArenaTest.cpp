#include <cstring>
#include <string>

#include "WorldFixture.h"
#include "gameplay/Deathmatch.h"
#include "graphics/EffectParticle.h"
#include "graphics/EffectSpeechBubble.h"

namespace {

class ArenaTest : public WorldTest {};

TEST_F(ArenaTest, ScriptWithoutShapeGetsTheDefaultFloorAndTwoStarts) {
    EXPECT_FLOAT_EQ(arena.min.x, 0.0f);
    EXPECT_FLOAT_EQ(arena.min.y, 300.0f);
    EXPECT_FLOAT_EQ(arena.max.x, 800.0f);
    EXPECT_FLOAT_EQ(arena.max.y, 600.0f);
    ASSERT_EQ(arena.startPositions.size(), 2u);
    EXPECT_FLOAT_EQ(arena.startPositions[0].x, 200.0f);
    EXPECT_FLOAT_EQ(arena.startPositions[1].x, 600.0f);
    EXPECT_FLOAT_EQ(arena.startPositions[1].y, 450.0f);
    EXPECT_EQ(arena.background.sprite, nullptr);  // not even the default picture on the server
}

TEST_F(ArenaTest, FightersFillTheStartsInTurnAndFaceTheCentre) {
    Character* first = addFighter(0.0f, 0.0f);
    Character* second = addFighter(0.0f, 0.0f);
    Character* third = addFighter(0.0f, 0.0f);
    arena.characters.clear();
    arena.addCharacter(first);
    arena.addCharacter(second);
    arena.addCharacter(third);
    EXPECT_FLOAT_EQ(first->position.x, 200.0f);
    EXPECT_EQ(first->direction, 0);
    EXPECT_FLOAT_EQ(second->position.x, 600.0f);
    EXPECT_EQ(second->direction, 4);
    EXPECT_FLOAT_EQ(third->position.x, 200.0f);  // wraps around
    EXPECT_EQ(third->arena, &arena);

    // The same id again: not listed twice, but placed again.
    first->position.x = 123.0f;
    arena.addCharacter(first);
    EXPECT_EQ(arena.characters.size(), 3u);
    EXPECT_FLOAT_EQ(first->position.x, 200.0f);
    EXPECT_EQ(arena.findCharacter(second->id), second);
    EXPECT_EQ(arena.findCharacter(99), nullptr);
    EXPECT_EQ(arena.getCharacter(2), third);
}

TEST_F(ArenaTest, WithoutStartsAFighterStandsInTheCentre) {
    arena.startPositions.clear();
    arena.setSize(100.0f, 200.0f, 300.0f, 100.0f);
    Character* fighter = addFighter(0.0f, 0.0f);
    arena.addCharacter(fighter);
    EXPECT_FLOAT_EQ(fighter->position.x, 250.0f);
    EXPECT_FLOAT_EQ(fighter->position.y, 250.0f);
    EXPECT_EQ(fighter->direction, 4);  // at the middle counts as the right half
}

TEST_F(ArenaTest, ALeavingFighterTakesItsBubblesAlongAndNothingElse) {
    Character* leaving = addFighter(100.0f, 400.0f);
    Character* staying = addFighter(300.0f, 400.0f);
    Arena shown;  // effects are kept only where something is drawn
    shown.characters = {leaving, staying};
    for (Character* speaker : {leaving, staying, leaving}) {
        auto* bubble = new Effects::SpeechBubble();
        bubble->character = speaker;
        shown.addEffect(bubble);
    }
    shown.addEffect(new Effects::Particle());
    GameMode* rules = new GameModes::Deathmatch();
    rules->addCharacter(leaving);
    rules->addCharacter(staying);

    shown.removeCharacter(leaving);
    rules->removeCharacter(leaving);
    EXPECT_EQ(shown.characters, std::vector<Character*>{staying});
    EXPECT_EQ(rules->characters, std::vector<Character*>{staying});
    ASSERT_EQ(shown.effects.size(), 2u);
    EXPECT_TRUE(shown.effects.front()->follows(staying));
    EXPECT_FALSE(shown.effects.back()->follows(staying));
    delete rules;
}

TEST_F(ArenaTest, EdgesBelongToTheFloorAndDistancesAreSigned) {
    EXPECT_FALSE(arena.collides(Vector(0.0f, 300.0f, 0.0f, 0.0f)));
    EXPECT_FALSE(arena.collides(Vector(800.0f, 600.0f, 1e9f, 0.0f)));
    EXPECT_TRUE(arena.collides(Vector(-0.01f, 400.0f, 0.0f, 0.0f)));
    EXPECT_TRUE(arena.collides(Vector(400.0f, 600.01f, 0.0f, 0.0f)));
    EXPECT_TRUE(arena.collides(Vector(400.0f, 400.0f, -0.01f, 0.0f)));

    Vector at(100.0f, 350.0f, 7.0f, 0.0f);
    EXPECT_FLOAT_EQ(arena.distanceToEdge(at, Vector(-1.0f, 5.0f, 0.0f, 0.0f)), -100.0f);
    EXPECT_FLOAT_EQ(arena.distanceToEdge(at, Vector(1.0f, 0.0f, 0.0f, 0.0f)), 700.0f);
    EXPECT_FLOAT_EQ(arena.distanceToEdge(at, Vector(0.0f, -1.0f, 0.0f, 0.0f)), -50.0f);
    EXPECT_FLOAT_EQ(arena.distanceToEdge(at, Vector(0.0f, 1.0f, 0.0f, 0.0f)), 250.0f);
    EXPECT_FLOAT_EQ(arena.distanceToEdge(at, Vector(0.0f, 0.0f, -1.0f, 0.0f)), 7.0f);
}

TEST_F(ArenaTest, UpdateRunsEveryFighterButTheServerKeepsTheOrder) {
    Character* low = addFighter(100.0f, 550.0f);
    Character* high = addFighter(300.0f, 350.0f);
    arena.update(0.125f);
    EXPECT_EQ(global(low, "updates"), 1.0);
    EXPECT_EQ(global(high, "updates"), 1.0);
    EXPECT_EQ(arena.getCharacter(0), low);
}

TEST_F(ArenaTest, ScriptsMissingInitOrBrokenAreRefused) {
    Arena other;
    other.objectType = OBJECT_SERVER;
    EXPECT_FALSE(other.init(dataPath("no_init.lua")));
    EXPECT_FALSE(other.init(dataPath("broken.lua")));
    EXPECT_TRUE(other.init(dataPath("arena.lua")));
}

TEST_F(ArenaTest, SnapshotsCarryOnlyTheNoise) {
    arena.setNoise(3.5f);
    uint32_t size = 0;
    void* bytes = arena.serialize(&size);
    ASSERT_EQ(size, 4u);
    EXPECT_EQ(arena.serialize(&size), bytes);  // one buffer, reused

    Arena copy;
    EXPECT_FALSE(copy.deserialize(bytes, 3));  // one byte short: refused, nothing read
    EXPECT_EQ(copy.noise, 0.0f);
    EXPECT_TRUE(copy.deserialize(bytes, 4));
    EXPECT_FLOAT_EQ(copy.noise, 3.5f);
}

TEST_F(ArenaTest, FighterSnapshotRoundTripsTwelveWords) {
    Character* fighter = addFighter(12.5f, 340.0f);
    fighter->position.z = 7.0f;
    fighter->speed = Vector(-3.0f, 4.0f, -5.0f, 0.0f);
    fighter->block = 0.75f;
    fighter->speakBlock = 0.25f;
    fighter->direction = 4;
    fighter->state = Character::SPEAKING | Character::MOVING;
    fighter->hp = -2.0f;
    fighter->air = 33.0f;
    fighter->charge = 9.0f;

    uint32_t size = 0;
    const uint8_t* bytes = static_cast<const uint8_t*>(fighter->serialize(&size));
    ASSERT_EQ(size, 48u);
    float word;
    std::memcpy(&word, bytes + 12, 4);
    EXPECT_EQ(word, 0.75f);  // block in the place of position.w
    std::memcpy(&word, bytes + 28, 4);
    EXPECT_EQ(word, 0.25f);  // speakBlock in the place of speed.w
    int32_t direction;
    std::memcpy(&direction, bytes + 32, 4);
    EXPECT_EQ(direction, 4);

    Character copy;
    copy.position.w = 1.0f;
    copy.speed.w = 1.0f;
    EXPECT_FALSE(copy.deserialize(bytes, 47));
    EXPECT_EQ(copy.position.w, 1.0f);
    EXPECT_TRUE(copy.deserialize(bytes, 48));
    // Everything but the charge travels, and the copy writes the same bytes.
    const std::string sent(reinterpret_cast<const char*>(bytes), size);
    EXPECT_EQ(std::string(static_cast<const char*>(copy.serialize(&size)), size), sent);
    EXPECT_EQ(copy.position.w, 0.0f);
    EXPECT_EQ(copy.speed.w, 0.0f);
    EXPECT_EQ(copy.hp, -2.0f);
    EXPECT_EQ(copy.charge, 0.0f);  // doesn't travel
}

}  // namespace
