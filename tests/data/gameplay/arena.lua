-- The default floor: (0, 300) to (800, 600), two starting positions.
function init() end
function update() end
