function update() end
