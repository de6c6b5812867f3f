-- The default floor: (0, 300) to (800, 600), two starting positions; the
-- script counts its updates.
updates = 0
function init() end
function update() updates = updates + 1 end
