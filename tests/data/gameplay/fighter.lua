-- A fighter that records what happens to it, for the tests to read back.
said = {}
hits = {}
hitSelf = {}
defends = 0
updates = 0

function init() end
function update() updates = updates + 1 end
function onSay(power) said[#said + 1] = power end
function onDefend() defends = defends + 1 end
function onHit(amount, self)
    hits[#hits + 1] = amount
    hitSelf[#hits] = self or -1
end
