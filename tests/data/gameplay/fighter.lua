-- A fighter with round numbers that records what happens to it, for the
-- tests to read back.
said = {}
hits = {}
hitSelf = {}
defends = 0
updates = 0

function init()
    setCharacter({hp = 100, lungCapacity = 100, moveSpeed = 100, voiceVolume = 10, speakSpeed = 0.5, airUsage = 25})
end
function update() updates = updates + 1 end
function onSay(power) said[#said + 1] = power end
function onDefend() defends = defends + 1 end
function onHit(amount, self)
    hits[#hits + 1] = amount
    hitSelf[#hits] = self or -1
end
