-- Sroka, the magpie: quick on her feet, quick with a word, thin-skinned.

include("character/common.lua")
local DIR = "character/sroka/"

-- A flick left-right-left (or the other way) throws her into the air with a
-- chirp: over words spoken at floor level, and onto a new spot.
function hop()
    jump(380)
    playSound(DIR .. "hop.ogg", 1.0)
    endCombo()
end

function init()
    setUpFighter(DIR, {name = "Sroka", moveSpeed = 190, voiceVolume = 2.5, speakSpeed = 0.25,
                       lungCapacity = 90, airUsage = 18, hp = 510})
    addCombo(hop, {"move-left", "move-right", "move-left"})
    addCombo(hop, {"move-right", "move-left", "move-right"})
end

function update() end
function onDefend() end
function onSay(power) speakUp(DIR, power) end
function onHit(amount, bounced) cryOut(DIR, amount, bounced, 10) end
