-- Shared by the fighters: set-up from the fighter's own folder, and its
-- voice. A fighter's folder holds character.xml, shadow.xml, speech.xml,
-- voice_1.ogg to voice_3.ogg, hurt_1.ogg and hurt_2.ogg.

function setUpFighter(dir, numbers)
    numbers.sprite = dir .. "character.xml"
    numbers.shadow = dir .. "shadow.xml"
    numbers.speech = dir .. "speech.xml"
    setCharacter(numbers)
end

-- One of three voice lines; a half-charged word is spoken half as loud.
function speakUp(dir, power)
    playSound(dir .. "voice_" .. math.random(3) .. ".ogg", power / getVoiceVolume())
end

-- A bounced word (second argument given) or a blow above `painful` hurts more.
function cryOut(dir, amount, bounced, painful)
    if bounced ~= nil or amount > painful then
        playSound(dir .. "hurt_2.ogg", 1.0)
    else
        playSound(dir .. "hurt_1.ogg", 0.8)
    end
end
