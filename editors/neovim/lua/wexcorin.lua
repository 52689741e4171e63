-- Starts `wexcorin lsp` for a buffer with the client that is built into Neovim, from version 0.7 on.
--
-- Settings, before the first file is opened:
--   require('wexcorin').setup {
--     path = 'wexcorin',         -- the tool
--     definition = '',           -- the definition of option files for which none is found
--     allow = {},                -- rules whose warnings are left out, as 'set-again'
--     limit = 1000,              -- findings of each kind that are listed
--     inlay_hints = false,       -- the default beside each value, from Neovim 0.10 on
--     on_attach = nil,           -- function(client, buffer), for key maps of one's own
--     capabilities = nil,        -- what a completion plugin adds
--   }
local M = {}

local settings = {path = 'wexcorin', definition = '', allow = {}, limit = 1000, inlay_hints = false}
local languages = {wexcorinopt = 'wexcorin-options', wexcorindef = 'wexcorin-definition'}
local clients = {} -- by their root, for versions without vim.lsp.start

function M.setup(given)
  settings = vim.tbl_extend('force', settings, given or {})
end

-- The folder of the nearest wexcorin.json or .git, else the folder of the file.
local function root_of(file)
  local folder = vim.fn.fnamemodify(file, ':p:h')
  for _, mark in ipairs({'wexcorin.json', '.git'}) do
    local found = vim.fn.findfile(mark, vim.fn.escape(folder, ' ,;') .. ';')
    if found == '' then found = vim.fn.finddir(mark, vim.fn.escape(folder, ' ,;') .. ';') end
    if found ~= '' then return (vim.fn.fnamemodify(found, ':p'):gsub('/$', ''):match('^(.*)/[^/]*$')) end
  end
  return folder
end

local function attached(client, buffer)
  vim.bo[buffer].omnifunc = 'v:lua.vim.lsp.omnifunc'
  if settings.inlay_hints and vim.lsp.inlay_hint then vim.lsp.inlay_hint.enable(true, {bufnr = buffer}) end
  if settings.on_attach then settings.on_attach(client, buffer) end
end

local function config_of(buffer)
  local root = root_of(vim.api.nvim_buf_get_name(buffer))
  local options = {
    definition = settings.definition,
    allow = settings.allow,
    limit = settings.limit,
    inlayHints = settings.inlay_hints,
  }
  return {
    name = 'wexcorin',
    cmd = {settings.path, 'lsp'},
    cmd_cwd = root,
    root_dir = root,
    workspace_folders = {{uri = vim.uri_from_fname(root), name = root}},
    get_language_id = function(_, filetype) return languages[filetype] or filetype end,
    init_options = options,
    settings = {wexcorin = options},
    capabilities = settings.capabilities,
    on_attach = attached,
  }
end

function M.start(buffer)
  buffer = buffer or vim.api.nvim_get_current_buf()
  if vim.api.nvim_buf_get_name(buffer) == '' or vim.bo[buffer].buftype ~= '' then return end
  if vim.fn.executable(settings.path) == 0 then
    vim.notify_once('wexcorin: the tool "' .. settings.path .. '" is not found, so files are not checked',
      vim.log.levels.WARN)
    return
  end
  local config = config_of(buffer)
  if vim.lsp.start then
    vim.lsp.start(config, {bufnr = buffer})
    return
  end
  local client = clients[config.root_dir]
  if not client or vim.lsp.client_is_stopped(client) then
    client = vim.lsp.start_client(config)
    clients[config.root_dir] = client
  end
  if client then vim.lsp.buf_attach_client(buffer, client) end
end

return M
