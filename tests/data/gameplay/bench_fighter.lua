-- A fighter whose script does a little work every frame, as content does.
local frames = 0
local taken = 0

function init() end
function update()
    frames = frames + 1
    if frames % 60 == 0 then taken = 0 end
end
function onSay(power) end
function onDefend() end
function onHit(amount) taken = taken + amount end
