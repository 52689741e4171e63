-- How Neovim looks in the pictures of the documentation: light colours, and no more than the file and its findings.
vim.o.background = 'light'
vim.o.laststatus = 0
vim.o.ruler = false
vim.o.showmode = false
vim.o.swapfile = false
vim.o.wrap = false
vim.o.hlsearch = false
vim.o.mouse = ''
vim.o.completeopt = 'menuone,noselect'
vim.opt.shortmess:append('cF')
vim.opt.fillchars = {eob = ' '}
vim.diagnostic.config({severity_sort = true})
vim.keymap.set('n', 'K', vim.lsp.buf.hover)
vim.cmd('highlight SignColumn ctermbg=NONE | highlight NormalFloat ctermbg=255 | highlight Pmenu ctermbg=255')
