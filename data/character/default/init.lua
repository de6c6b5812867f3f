-- Mowca, the orator: a steady all-rounder with a battle cry.

include("character/common.lua")
local DIR = "character/default/"

-- Guard, then charge and let go: besides the word itself, a cry half again
-- as loud as any plain word, paid for with every breath left.
function battleCry()
    say(getVoiceVolume() * 1.5)
    setAir(0)
    playSound(DIR .. "shout.ogg", 1.0)
    endCombo()
end

function init()
    setUpFighter(DIR, {name = "Mowca", moveSpeed = 130, voiceVolume = 3, speakSpeed = 0.45,
                       lungCapacity = 100, airUsage = 30, hp = 560})
    addCombo(battleCry, {"defend", "charge", "say"})
end

function update() end
function onDefend() end
function onSay(power) speakUp(DIR, power) end
function onHit(amount, bounced) cryOut(DIR, amount, bounced, 15) end
