-- Ropuch, the toad king: slow, huge lungs, a voice that shakes the floor.

include("character/common.lua")
local DIR = "character/ropuch/"

-- Speak, then raise the guard as the word ends: he puffs himself up and
-- heals, but stands rooted while he does.
function puff()
    setHp(getHp() + 40)
    setBlock(0.7)
    playSound(DIR .. "puff.ogg", 1.0)
    endCombo()
end

function init()
    setUpFighter(DIR, {name = "Ropuch", moveSpeed = 85, voiceVolume = 3.6, speakSpeed = 0.6,
                       lungCapacity = 160, airUsage = 75, hp = 620})
    addCombo(puff, {"charge", "say", "defend"})
end

function update() end
function onDefend() end
function onSay(power) speakUp(DIR, power) end
function onHit(amount, bounced) cryOut(DIR, amount, bounced, 25) end
